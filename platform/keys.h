// Keys as the windows' code knows them. The numbers are the host platform's virtual key codes.
#pragma once

namespace kelvane::platform {

enum class Key : int {
    None = 0,
    Backspace = 8,
    Tab = 9,
    Enter = 13,
    Escape = 27,
    Space = 32,
    PageUp = 33,
    PageDown = 34,
    End = 35,
    Home = 36,
    Left = 37,
    Up = 38,
    Right = 39,
    Down = 40,
    Insert = 45,
    Delete = 46,
    D0 = 48,  // the digits are D0 + n, the letters A + n
    A = 65,
    D = 68,
    I = 73,
    P = 80,
    Z = 90,
    Menu = 93,
    F1 = 112,
    F2 = 113,
    F3 = 114,
    F4 = 115,
    F5 = 116,
    F6 = 117,
    F7 = 118,
    F8 = 119,
    F9 = 120,
    F10 = 121,
    F11 = 122,
    F12 = 123,
    Plus = 187,
    Minus = 189,
    Quote = 222,
    Other = 229,  // a key without a number of its own: punctuation, an input method's
};

// Bits of a shift state.
inline constexpr int kShift = 1;
inline constexpr int kCtrl = 2;
inline constexpr int kAlt = 4;

struct KeyStroke {
    Key key = Key::None;
    int shift = 0;           // bits kShift, kCtrl, kAlt
    char32_t character = 0;  // what the key types; 0 is nothing
};

// The key that types `character`.
constexpr Key KeyOfCharacter(char32_t character) {
    if (character == U' ') return Key::Space;
    if (character >= U'0' && character <= U'9') return static_cast<Key>(character);
    if (character >= U'A' && character <= U'Z') return static_cast<Key>(character);
    if (character >= U'a' && character <= U'z') return static_cast<Key>(character - U'a' + U'A');
    if (character == U'+' || character == U'=') return Key::Plus;
    if (character == U'-' || character == U'_') return Key::Minus;
    if (character == U'\'') return Key::Quote;
    return Key::Other;
}

}  // namespace kelvane::platform
