// The keys' names in operator scripts and in sent keys, and the strokes that type a text.
#include <array>
#include <string>

#include "adapters/drive/key_flow.h"

namespace kelvane::drive {

using platform::Key;

namespace {

struct KeyName {
    std::string_view name;
    Key key;
};

constexpr std::array kKeyNames{
    KeyName{"BACKSPACE", Key::Backspace},
    KeyName{"TAB", Key::Tab},
    KeyName{"ENTER", Key::Enter},
    KeyName{"ESCAPE", Key::Escape},
    KeyName{"ESC", Key::Escape},
    KeyName{"SPACE", Key::Space},
    KeyName{"PAGEUP", Key::PageUp},
    KeyName{"PAGEDOWN", Key::PageDown},
    KeyName{"END", Key::End},
    KeyName{"HOME", Key::Home},
    KeyName{"LEFT", Key::Left},
    KeyName{"UP", Key::Up},
    KeyName{"RIGHT", Key::Right},
    KeyName{"DOWN", Key::Down},
    KeyName{"INSERT", Key::Insert},
    KeyName{"DELETE", Key::Delete},
    KeyName{"DEL", Key::Delete},
    KeyName{"F1", Key::F1},
    KeyName{"F2", Key::F2},
    KeyName{"F3", Key::F3},
    KeyName{"F4", Key::F4},
    KeyName{"F5", Key::F5},
    KeyName{"F6", Key::F6},
    KeyName{"F7", Key::F7},
    KeyName{"F8", Key::F8},
    KeyName{"F9", Key::F9},
    KeyName{"F10", Key::F10},
    KeyName{"F11", Key::F11},
    KeyName{"F12", Key::F12},
};

struct ShiftName {
    std::string_view prefix;
    int bit;
};

constexpr std::array kShiftNames{
    ShiftName{"SHIFT+", platform::kShift},
    ShiftName{"CTRL+", platform::kCtrl},
    ShiftName{"ALT+", platform::kAlt},
};

std::string UpperCase(std::string_view text) {
    std::string upper(text);
    for (char& letter : upper) {
        if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
    }
    return upper;
}

// Number of bytes that the character beginning with `lead` has; 0 for no beginning.
std::size_t LengthOf(unsigned char lead) {
    if (lead < 0x80U) return 1;
    if (lead >= 0xC2U && lead < 0xE0U) return 2;
    if (lead >= 0xE0U && lead < 0xF0U) return 3;
    return lead >= 0xF0U && lead < 0xF5U ? 4 : 0;
}

// Takes one character from `text`; 0 for a byte that is no UTF-8.
char32_t TakeCharacter(std::string_view& text) {
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t length = LengthOf(lead);
    if (length == 0 || length > text.size()) {
        text.remove_prefix(1);
        return 0;
    }
    constexpr std::array<unsigned, 5> kLeadBits{0, 0x7FU, 0x1FU, 0x0FU, 0x07U};
    char32_t character = lead & kLeadBits[length];
    for (std::size_t at = 1; at < length; ++at) {
        const auto byte = static_cast<unsigned char>(text[at]);
        if ((byte & 0xC0U) != 0x80U) {
            text.remove_prefix(1);
            return 0;
        }
        character = (character << 6U) | (byte & 0x3FU);
    }
    text.remove_prefix(length);
    return character;
}

}  // namespace

KeyStroke StrokeOf(char32_t character) {
    const bool capital = character >= U'A' && character <= U'Z';
    return {platform::KeyOfCharacter(character), capital ? platform::kShift : 0, character};
}

std::vector<KeyStroke> StrokesOf(std::string_view text) {
    std::vector<KeyStroke> strokes;
    while (!text.empty()) {
        const char32_t character = TakeCharacter(text);
        if (character != 0) strokes.push_back(StrokeOf(character));
    }
    return strokes;
}

std::optional<KeyStroke> FindKey(std::string_view name) {
    const std::string upper = UpperCase(name);
    std::string_view rest = upper;
    int shift = 0;
    for (bool found = true; found;) {
        found = false;
        for (const ShiftName& each : kShiftNames) {
            if (!rest.starts_with(each.prefix)) continue;
            rest.remove_prefix(each.prefix.size());
            shift |= each.bit;
            found = true;
        }
    }
    for (const KeyName& each : kKeyNames) {
        if (each.name == rest) {
            return KeyStroke{each.key, shift, each.key == Key::Space ? U' ' : U'\0'};
        }
    }
    // A single character: its key, typing it as it stands in the name.
    std::string_view character = name.substr(name.size() - rest.size());
    if (character.empty()) return std::nullopt;
    const char32_t typed = TakeCharacter(character);
    if (typed == 0 || !character.empty()) return std::nullopt;
    return KeyStroke{platform::KeyOfCharacter(typed), shift, typed};
}

std::vector<KeyStroke> ParseSentKeys(std::string_view keys) {
    std::vector<KeyStroke> strokes;
    while (!keys.empty()) {
        const std::size_t close = keys.front() == '{' ? keys.find('}') : std::string_view::npos;
        if (close != std::string_view::npos) {
            if (const auto stroke = FindKey(keys.substr(1, close - 1))) strokes.push_back(*stroke);
            keys.remove_prefix(close + 1);
            continue;
        }
        const char32_t character = TakeCharacter(keys);
        if (character != 0) strokes.push_back(StrokeOf(character));
    }
    return strokes;
}

}  // namespace kelvane::drive
