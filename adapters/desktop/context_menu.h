// The context menu of a form's actions.
#pragma once

#include <wx/window.h>

#include "controls/form.h"

namespace kelvane::desktop {

// Shows the menu at `place` in `window` and runs what is chosen; those that are not possible now
// are grey. Nothing happens for a form without such actions.
void ShowActionMenu(wxWindow& window, const wxPoint& place, controls::Form& form);

}  // namespace kelvane::desktop
