#include "controls/edit_box.h"

#include "platform/utf8.h"

namespace kelvane::controls {

void EditBox::SetText(const std::string& text) {
    if (text == mText) return;
    Assign(mText, text);
    if (Change) Owner().RunEvent(Name() + "_Change", Change);
}

bool EditBox::KeyDown(platform::Key key, int /*shift*/) {
    if (!Enabled() || key != platform::Key::Backspace) return false;
    std::string text = mText;
    platform::DropLastCharacter(text);
    SetText(text);
    return true;
}

bool EditBox::KeyPress(char32_t character) {
    if (!Enabled() || character < U' ') return false;
    std::string text = mText;
    platform::AppendCharacter(text, character);
    SetText(text);
    return true;
}

}  // namespace kelvane::controls
