// The host's own windows while one of ours is shown modally: they take no input, as below any modal
// window.
#pragma once

#include <vector>

#include "adapters/windows/com_headers.h"

namespace kelvane::host {

// Disables the windows of this thread for its lifetime, those that are visible and enabled; then
// the one that was active before is so again.
class DisabledHostWindows {
public:
    DisabledHostWindows();
    ~DisabledHostWindows();
    DisabledHostWindows(const DisabledHostWindows&) = delete;
    DisabledHostWindows& operator=(const DisabledHostWindows&) = delete;

private:
    HWND mActive;
    std::vector<HWND> mDisabled;
};

}  // namespace kelvane::host
