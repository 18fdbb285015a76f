// The toolkit's key events as the keystrokes that the windows' code knows.
#pragma once

#include <wx/event.h>

#include "platform/keys.h"

namespace kelvane::desktop {

using platform::KeyStroke;

// The key of a key-down or key-up event.
KeyStroke StrokeOfKey(const wxKeyEvent& event);

// The key of a character event. `downCode` is the code of the key-down event before it: with Ctrl
// held it tells Ctrl+I from the tab key.
KeyStroke StrokeOfCharacter(const wxKeyEvent& event, int downCode);

}  // namespace kelvane::desktop
