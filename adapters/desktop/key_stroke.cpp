#include "adapters/desktop/key_stroke.h"

#include <algorithm>
#include <array>

namespace kelvane::desktop {

using platform::Key;

namespace {

struct KeyCode {
    int code;
    Key key;
};

constexpr std::array kKeyCodes{
    KeyCode{WXK_BACK, Key::Backspace},
    KeyCode{WXK_TAB, Key::Tab},
    KeyCode{WXK_NUMPAD_TAB, Key::Tab},
    KeyCode{WXK_RETURN, Key::Enter},
    KeyCode{WXK_NUMPAD_ENTER, Key::Enter},
    KeyCode{WXK_ESCAPE, Key::Escape},
    KeyCode{WXK_SPACE, Key::Space},
    KeyCode{WXK_NUMPAD_SPACE, Key::Space},
    KeyCode{WXK_PAGEUP, Key::PageUp},
    KeyCode{WXK_NUMPAD_PAGEUP, Key::PageUp},
    KeyCode{WXK_PAGEDOWN, Key::PageDown},
    KeyCode{WXK_NUMPAD_PAGEDOWN, Key::PageDown},
    KeyCode{WXK_END, Key::End},
    KeyCode{WXK_NUMPAD_END, Key::End},
    KeyCode{WXK_HOME, Key::Home},
    KeyCode{WXK_NUMPAD_HOME, Key::Home},
    KeyCode{WXK_LEFT, Key::Left},
    KeyCode{WXK_NUMPAD_LEFT, Key::Left},
    KeyCode{WXK_UP, Key::Up},
    KeyCode{WXK_NUMPAD_UP, Key::Up},
    KeyCode{WXK_RIGHT, Key::Right},
    KeyCode{WXK_NUMPAD_RIGHT, Key::Right},
    KeyCode{WXK_DOWN, Key::Down},
    KeyCode{WXK_NUMPAD_DOWN, Key::Down},
    KeyCode{WXK_INSERT, Key::Insert},
    KeyCode{WXK_NUMPAD_INSERT, Key::Insert},
    KeyCode{WXK_DELETE, Key::Delete},
    KeyCode{WXK_NUMPAD_DELETE, Key::Delete},
    KeyCode{WXK_WINDOWS_MENU, Key::Menu},
    KeyCode{WXK_MENU, Key::Menu},
};

Key Offset(Key base, int offset) {
    return static_cast<Key>(static_cast<int>(base) + offset);
}

Key KeyOfCode(int code) {
    const auto known = std::find_if(kKeyCodes.begin(), kKeyCodes.end(),
                                    [code](const KeyCode& entry) { return entry.code == code; });
    if (known != kKeyCodes.end()) return known->key;
    if (code >= WXK_F1 && code <= WXK_F12) return Offset(Key::F1, code - WXK_F1);
    if (code >= WXK_NUMPAD0 && code <= WXK_NUMPAD9) return Offset(Key::D0, code - WXK_NUMPAD0);
    if (code >= WXK_SHIFT && code <= WXK_CAPITAL && code != WXK_PAUSE) return Key::None;
    return code > WXK_SPACE && code < 256 ? platform::KeyOfCharacter(static_cast<char32_t>(code))
                                          : Key::Other;
}

int ShiftState(const wxKeyEvent& event) {
    return (event.ShiftDown() ? platform::kShift : 0) |
           (event.ControlDown() ? platform::kCtrl : 0) | (event.AltDown() ? platform::kAlt : 0);
}

}  // namespace

KeyStroke StrokeOfKey(const wxKeyEvent& event) {
    return {KeyOfCode(event.GetKeyCode()), ShiftState(event), 0};
}

KeyStroke StrokeOfCharacter(const wxKeyEvent& event, int downCode) {
    KeyStroke stroke;
    stroke.shift = ShiftState(event);
    const int code = event.GetKeyCode();
    const bool control = (stroke.shift & platform::kCtrl) != 0;
    const auto character = static_cast<char32_t>(event.GetUnicodeKey());
    if (control && code < WXK_SPACE) {
        stroke.key = KeyOfCode(downCode);
    } else if (character > U' ' && character != WXK_DELETE) {
        stroke.key = platform::KeyOfCharacter(character);
    } else {
        stroke.key = KeyOfCode(code);
    }
    const bool types = character >= U' ' && character != WXK_DELETE;
    if (types && !control && (stroke.shift & platform::kAlt) == 0) stroke.character = character;
    return stroke;
}

}  // namespace kelvane::desktop
