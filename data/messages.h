// Message boxes as the component shows them, and the captions that many of them share.
#pragma once

#include <string_view>

#include "platform/windows.h"

namespace kelvane::data {

inline constexpr std::string_view kPromptCaption = "提示信息";
inline constexpr std::string_view kModuleCaption = "项目管理";

// A box with an OK button, over gServices->windows.
void ShowMessage(std::string_view text, std::string_view caption, platform::MessageIcon icon);
// The same with the information icon.
void ShowInformation(std::string_view text, std::string_view caption = kPromptCaption);

// A Yes/No box; True for Yes.
bool AskQuestion(std::string_view text, std::string_view caption = kModuleCaption,
                 platform::MessageIcon icon = platform::MessageIcon::Question,
                 platform::MessageAnswer preselected = platform::MessageAnswer::Yes);

}  // namespace kelvane::data
