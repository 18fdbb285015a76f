// The actions that the component's windows have for their grids.
#pragma once

#include "controls/grid_actions.h"
#include "data/login_context.h"

namespace kelvane::ui {

// Selecting and copying, with the clipboard of the host's windows.
inline void AddGridActions(controls::Form& form, controls::Grid& grid) {
    controls::AddGridActions(form, grid,
                             []() -> platform::Windows& { return *data::gServices->windows; });
}

}  // namespace kelvane::ui
