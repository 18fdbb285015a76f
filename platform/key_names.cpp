#include "platform/key_names.h"

#include <array>
#include <string>

#include "platform/ascii.h"
#include "platform/utf8.h"

namespace kelvane::platform {

namespace {

struct KeyName {
    std::string_view name;
    Key key;
};

// A key with two names has both in a row, the one that is shown first.
constexpr std::array kKeyNames{
    KeyName{"Backspace", Key::Backspace},
    KeyName{"BS", Key::Backspace},
    KeyName{"Tab", Key::Tab},
    KeyName{"Enter", Key::Enter},
    KeyName{"Esc", Key::Escape},
    KeyName{"Escape", Key::Escape},
    KeyName{"Space", Key::Space},
    KeyName{"PageUp", Key::PageUp},
    KeyName{"PgUp", Key::PageUp},
    KeyName{"PageDown", Key::PageDown},
    KeyName{"PgDn", Key::PageDown},
    KeyName{"End", Key::End},
    KeyName{"Home", Key::Home},
    KeyName{"Left", Key::Left},
    KeyName{"Up", Key::Up},
    KeyName{"Right", Key::Right},
    KeyName{"Down", Key::Down},
    KeyName{"Insert", Key::Insert},
    KeyName{"Delete", Key::Delete},
    KeyName{"Del", Key::Delete},
    KeyName{"Menu", Key::Menu},
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
    ShiftName{"Ctrl+", kCtrl},
    ShiftName{"Alt+", kAlt},
    ShiftName{"Shift+", kShift},
};

bool IsTyped(const Utf8Character& character) {
    return character.valid && character.value != 0;
}

// Bytes that are no UTF-8 type nothing.
void AppendStroke(std::vector<KeyStroke>& strokes, const Utf8Character& character) {
    if (IsTyped(character)) strokes.push_back(StrokeOf(character.value));
}

}  // namespace

KeyStroke StrokeOf(char32_t character) {
    const bool capital = character >= U'A' && character <= U'Z';
    return {KeyOfCharacter(character), capital ? kShift : 0, character};
}

std::vector<KeyStroke> StrokesOf(std::string_view text) {
    std::vector<KeyStroke> strokes;
    while (!text.empty()) {
        AppendStroke(strokes, TakeCharacter(text));
    }
    return strokes;
}

std::optional<KeyStroke> FindKey(std::string_view name) {
    std::string_view rest = name;
    int shift = 0;
    for (bool found = true; found;) {
        found = false;
        for (const ShiftName& each : kShiftNames) {
            if (!EqualIgnoringCase(rest.substr(0, each.prefix.size()), each.prefix)) continue;
            rest.remove_prefix(each.prefix.size());
            shift |= each.bit;
            found = true;
        }
    }
    const bool types = (shift & (kCtrl | kAlt)) == 0;
    for (const KeyName& each : kKeyNames) {
        if (EqualIgnoringCase(each.name, rest)) {
            return KeyStroke{each.key, shift, types && each.key == Key::Space ? U' ' : U'\0'};
        }
    }
    // A single character: its key, typing it as it stands in the name.
    if (rest.empty()) return std::nullopt;
    const Utf8Character typed = TakeCharacter(rest);
    if (!IsTyped(typed) || !rest.empty()) return std::nullopt;
    return KeyStroke{KeyOfCharacter(typed.value), shift, types ? typed.value : U'\0'};
}

std::string NameOfKey(const KeyStroke& stroke) {
    std::string name;
    for (const ShiftName& each : kShiftNames) {
        if ((stroke.shift & each.bit) != 0) name += each.prefix;
    }
    for (const KeyName& each : kKeyNames) {
        if (each.key == stroke.key) return name + std::string(each.name);
    }
    for (char32_t character = U'!'; character < U'`'; ++character) {
        if (stroke.key != Key::Other && KeyOfCharacter(character) == stroke.key) {
            return name + static_cast<char>(character);
        }
    }
    return {};
}

std::string CaptionWithKey(const std::string& caption, const KeyStroke& stroke) {
    const std::string key = NameOfKey(stroke);
    return key.empty() || caption.empty() ? key : caption + " (" + key + ")";
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
        AppendStroke(strokes, TakeCharacter(keys));
    }
    return strokes;
}

}  // namespace kelvane::platform
