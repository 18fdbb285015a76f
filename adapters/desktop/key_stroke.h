// KeyStroke: a key as the windows' code knows it, taken from the toolkit's events or from the text
// of a sent keystroke.
#pragma once

#include <wx/event.h>

#include <string_view>
#include <vector>

#include "platform/keys.h"

namespace kelvane::desktop {

struct KeyStroke {
    platform::Key key = platform::Key::None;
    int shift = 0;
    // What the key types; 0 when it types nothing.
    char32_t character = 0;
};

// The key of a key-down or key-up event.
KeyStroke StrokeOfKey(const wxKeyEvent& event);

// The key of a character event. `downCode` is the code of the key-down event before it: with Ctrl
// held it tells Ctrl+I from the tab key.
KeyStroke StrokeOfCharacter(const wxKeyEvent& event, int downCode);

// The keystrokes of a text in which a key's name stands in braces: " {f2}". Unknown names are left
// out.
std::vector<KeyStroke> ParseKeys(std::string_view keys);

}  // namespace kelvane::desktop
