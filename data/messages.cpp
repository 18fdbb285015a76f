#include "data/messages.h"

#include "data/login_context.h"

namespace kelvane::data {

using platform::Message;
using platform::MessageAnswer;
using platform::MessageButtons;
using platform::MessageIcon;

void ShowMessage(std::string_view text, std::string_view caption, MessageIcon icon) {
    Message message;
    message.text = text;
    message.caption = caption;
    message.icon = icon;
    gServices->windows->ShowMessage(message);
}

void ShowInformation(std::string_view text, std::string_view caption) {
    ShowMessage(text, caption, MessageIcon::Information);
}

bool AskQuestion(std::string_view text, std::string_view caption, MessageIcon icon,
                 MessageAnswer preselected) {
    Message message;
    message.text = text;
    message.caption = caption;
    message.icon = icon;
    message.buttons = MessageButtons::YesNo;
    message.preselected = preselected;
    return gServices->windows->ShowMessage(message) == MessageAnswer::Yes;
}

}  // namespace kelvane::data
