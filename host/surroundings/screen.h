// The real windows, as far as this build has them.
#pragma once

#include <functional>
#include <string>

#include "adapters/drive/operator.h"
#include "host/surroundings/translation.h"
#include "platform/print_surroundings.h"
#include "platform/windows.h"

namespace kelvane::host {

inline constexpr const char* kNoScreen =
    ToTranslate("this build has no windows (KELVANE_BUILD_DESKTOP is off)");

bool HasScreen();

struct Screen {
    platform::Windows& windows;
    // Writes what the topmost window shows to a PNG file; false when it cannot.
    std::function<bool(const std::string& path)> saveScreenshot;
    // The file dialog and the printers for a real operator; null where there are none.
    platform::PrintSurroundings* printing = nullptr;
};

// Starts the windows, does `work` on them and returns its result. `script`: who acts on them in
// the operator's place; null for a real operator. Call it once, and only when HasScreen(). Throws
// std::runtime_error when there is no screen, and what `work` throws.
int RunOnScreen(drive::Operator* script, const std::function<int(const Screen&)>& work);

}  // namespace kelvane::host
