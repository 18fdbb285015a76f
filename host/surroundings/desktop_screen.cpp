// The windows of a build with windows.

#include "adapters/desktop/desktop_windows.h"
#include "host/surroundings/screen.h"

namespace kelvane::host {

bool HasScreen() {
    return true;
}

int RunOnScreen(drive::Operator* script, const std::function<int(const Screen&)>& work) {
    return desktop::RunDesktop([&](desktop::DesktopWindows& windows) {
        windows.SetOperator(script);
        return work({windows,
                     [&windows](const std::string& path) { return windows.SaveScreenshot(path); },
                     script == nullptr ? &windows.Printing() : nullptr});
    });
}

}  // namespace kelvane::host
