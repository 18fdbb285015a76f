#include "adapters/desktop/key_stroke.h"

#include <wx/string.h>

#include <algorithm>
#include <array>
#include <string>

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
};

struct KeyName {
    std::string_view name;
    Key key;
};

constexpr std::array kKeyNames{
    KeyName{"tab", Key::Tab},      KeyName{"enter", Key::Enter},   KeyName{"esc", Key::Escape},
    KeyName{"home", Key::Home},    KeyName{"end", Key::End},       KeyName{"left", Key::Left},
    KeyName{"right", Key::Right},  KeyName{"up", Key::Up},         KeyName{"down", Key::Down},
    KeyName{"pgup", Key::PageUp},  KeyName{"pgdn", Key::PageDown}, KeyName{"del", Key::Delete},
    KeyName{"bs", Key::Backspace},
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

Key KeyOfName(std::string name) {
    std::transform(name.begin(), name.end(), name.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    const auto known = std::find_if(kKeyNames.begin(), kKeyNames.end(),
                                    [&](const KeyName& entry) { return entry.name == name; });
    if (known != kKeyNames.end()) return known->key;
    for (int number = 1; number <= 12; ++number) {
        if (name == "f" + std::to_string(number)) return Offset(Key::F1, number - 1);
    }
    return Key::None;
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

std::vector<KeyStroke> ParseKeys(std::string_view keys) {
    std::vector<KeyStroke> strokes;
    while (!keys.empty()) {
        const std::size_t end = keys.front() == '{' ? keys.find('}') : std::string_view::npos;
        if (end != std::string_view::npos) {
            const Key key = KeyOfName(std::string(keys.substr(1, end - 1)));
            if (key != Key::None) strokes.push_back({key, 0, 0});
            keys.remove_prefix(end + 1);
            continue;
        }
        const auto character = static_cast<char32_t>(static_cast<unsigned char>(keys.front()));
        strokes.push_back({platform::KeyOfCharacter(character), 0, character});
        keys.remove_prefix(1);
    }
    return strokes;
}

}  // namespace kelvane::desktop
