#include "adapters/drive/toolbars.h"

#include <algorithm>

#include "adapters/drive/script.h"

namespace kelvane::drive {

ShownToolbar::ShownToolbar(const controls::Form& form) {
    for (controls::Control* control : form.Controls()) {
        if (!control->Visible()) continue;
        if (mPlain == nullptr) mPlain = dynamic_cast<controls::Toolbar*>(control);
        if (mStyled == nullptr) mStyled = dynamic_cast<controls::ToolbarStyleControl*>(control);
    }
    if (mStyled != nullptr && mStyled->GetToolbarStyle() == 0) mStyled = nullptr;
    if (mPlain == nullptr && mStyled == nullptr) {
        throw ScriptError(form.Name() + " shows no toolbar");
    }
}

std::vector<ShownButton> ShownToolbar::Buttons() const {
    if (mStyled != nullptr) return mStyled->Items();
    std::vector<ShownButton> buttons;
    for (const controls::ToolbarButton& button : mPlain->Buttons()) {
        buttons.push_back({button.Key(), button.Caption(), 0, button.IsSeparator(),
                           button.Enabled(), button.Visible()});
    }
    return buttons;
}

void ShownToolbar::Click(std::string_view key) {
    const std::vector<ShownButton> buttons = Buttons();
    const bool known = std::any_of(buttons.begin(), buttons.end(), [&](const ShownButton& button) {
        return !button.separator && button.key == key;
    });
    if (!known) throw ScriptError("the toolbar has no button \"" + std::string(key) + "\"");
    if (mStyled != nullptr) {
        mStyled->Click(key);
    } else {
        mPlain->Click(key);
    }
}

}  // namespace kelvane::drive
