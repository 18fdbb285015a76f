// The host's own windows while one of ours is shown modally: they take no input and stay below, as
// below any modal window.
#pragma once

#include <vector>

#include "adapters/com/com_headers.h"

namespace kelvane::host {

// For its lifetime the windows of this thread that are visible and enabled are disabled, and
// windows of this module that nobody owns belong to the one that is active; then that one is active
// again. One at a time.
class DisabledHostWindows {
public:
    DisabledHostWindows();
    ~DisabledHostWindows();
    DisabledHostWindows(const DisabledHostWindows&) = delete;
    DisabledHostWindows& operator=(const DisabledHostWindows&) = delete;

private:
    HWND mActive;
    std::vector<HWND> mDisabled;
    HHOOK mHook = nullptr;
};

}  // namespace kelvane::host
