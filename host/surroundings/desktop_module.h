// What the program and its module of windows know of each other. The windows' toolkit takes longer
// to load than most commands run, so it is loaded where a window is wanted and nowhere else.
#pragma once

#include <functional>

#include "adapters/drive/operator.h"
#include "host/surroundings/screen.h"

namespace kelvane::host {

// What the module gives by the name kDesktopModule, which is a symbol of C.
struct DesktopModule {
    // Of the program that it was built with; another one's knows nothing of the rest.
    const char* version;
    int (*runOnScreen)(drive::Operator* script, const std::function<int(const Screen&)>& work);
};

inline constexpr const char* kDesktopModule = "kelvane_desktop_module";

}  // namespace kelvane::host
