// Where windows stand: in the middle of the screen, and a list window's layout as it was kept from
// one opening to the next for the operator who is logged in.
#pragma once

#include "controls/form.h"
#include "controls/kept_layout.h"
#include "data/login_context.h"

namespace kelvane::ui {

// Gives the window what was kept under `name`, when the host keeps anything.
inline void RestoreLayout(controls::KeptLayout& layout, const std::string& name) {
    const platform::Windows& windows = *data::gServices->windows;
    layout.Restore(data::gServices->userSettings, name, windows.ScreenWidth(),
                   windows.ScreenHeight());
}

inline void Centre(controls::Form& form) {
    const platform::Windows& windows = *data::gServices->windows;
    form.SetPosition((windows.ScreenWidth() - form.Width()) / 2,
                     (windows.ScreenHeight() - form.Height()) / 2);
}

}  // namespace kelvane::ui
