// The actions that every window with a grid has: selecting and copying.
#pragma once

#include <functional>

#include "controls/form.h"
#include "controls/grid.h"
#include "platform/windows.h"

namespace kelvane::controls {

// Adds them to `form` for its `grid`. Their keys work while the grid is the active control and no
// cell is open; in the menu they also stand for a grid that takes no keys. `windows` gives the
// windows whose clipboard is meant; it is asked each time, on the event path of the action.
void AddGridActions(Form& form, Grid& grid, std::function<platform::Windows&()> windows);

}  // namespace kelvane::controls
