// How a keystroke travels through a window, for every kind of windows and for operator scripts:
// navigation keys and the window's default buttons first, then key down, key press and key up.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "controls/form.h"
#include "platform/keys.h"

namespace kelvane::drive {

struct KeyStroke {
    platform::Key key = platform::Key::None;
    int shift = 0;           // bits platform::kShift, kCtrl, kAlt
    char32_t character = 0;  // what the key types; 0 is nothing
};

// The stroke that types `character`.
KeyStroke StrokeOf(char32_t character);

// The strokes that type `text`, which is UTF-8; bytes that are no UTF-8 are left out.
std::vector<KeyStroke> StrokesOf(std::string_view text);

// The stroke of a named key, without regard to letter case: "F2", "Ctrl+Shift+P", "Delete",
// "PageDown", "a", "7". Nothing for an unknown name.
std::optional<KeyStroke> FindKey(std::string_view name);

// The strokes of a text for platform::Windows::SendKeys: characters for themselves, keys' names in
// braces. An unknown name between braces sends nothing.
std::vector<KeyStroke> ParseSentKeys(std::string_view keys);

// Does to `form` what pressing and releasing a key does:
//   Alt+F4           closes the window as its close box does;
//   Tab, Escape      go to the grid when it is the active control, past the form; otherwise Tab
//                    moves the focus and Escape presses the cancel button;
//   any other key    KeyDown; unless used, Enter presses the active button or the default button
//                    and the blank the active button; otherwise KeyPress with the character; then
//                    KeyUp.
// Returns true when something used the key before it was released.
bool PressKey(controls::Form& form, const KeyStroke& stroke);

}  // namespace kelvane::drive
