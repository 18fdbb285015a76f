// How a keystroke travels through a window, for every kind of windows and for operator scripts:
// navigation keys and the window's default buttons first, then key down, key press and key up.
#pragma once

#include "controls/form.h"
#include "platform/keys.h"

namespace kelvane::drive {

// Does to `form` what pressing and releasing a key does:
//   Alt+F4           closes the window as its close box does;
//   Tab, Escape      go to the grid when it is the active control, past the form; otherwise Tab
//                    moves the focus and Escape presses the cancel button;
//   any other key    KeyDown; unless used, Enter presses the active button or the default button
//                    and the blank the active button; otherwise KeyPress with the character; then
//                    KeyUp.
// Returns true when something used the key before it was released.
bool PressKey(controls::Form& form, const platform::KeyStroke& stroke);

}  // namespace kelvane::drive
