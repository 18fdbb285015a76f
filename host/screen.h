// The real windows, as far as this build has them.
#pragma once

#include <functional>

#include "adapters/drive/operator.h"
#include "platform/windows.h"

namespace kelvane::host {

inline constexpr const char* kNoScreen = "this build has no windows (KELVANE_BUILD_DESKTOP is off)";

bool HasScreen();

// Starts the windows, does `work` on them and returns its result. `script`: who acts on them in
// the operator's place; null for a real operator. Call it once, and only when HasScreen().
int RunOnScreen(drive::Operator* script, const std::function<int(platform::Windows&)>& work);

}  // namespace kelvane::host
