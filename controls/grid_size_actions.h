// What the operator can do with any grid beside typing into it: column widths and the size at which
// it is shown.
#pragma once

#include "controls/form.h"
#include "controls/grid.h"

namespace kelvane::controls {

// Adds the actions for `grid`, which is one of `form`'s controls.
void AddGridSizeActions(Form& form, Grid& grid);

}  // namespace kelvane::controls
