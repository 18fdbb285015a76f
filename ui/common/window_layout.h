// A list window's layout, kept from one opening to the next for the operator who is logged in.
#pragma once

#include "controls/kept_layout.h"
#include "data/login_context.h"

namespace kelvane::ui {

// Gives the window what was kept under `name`, when the host keeps anything.
inline void RestoreLayout(controls::KeptLayout& layout, const std::string& name) {
    const platform::Windows& windows = *data::gServices->windows;
    layout.Restore(data::gServices->userSettings, name, windows.ScreenWidth(),
                   windows.ScreenHeight());
}

}  // namespace kelvane::ui
