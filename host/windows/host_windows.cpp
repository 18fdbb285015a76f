#include "host/windows/host_windows.h"

namespace kelvane::host {

namespace {

BOOL CALLBACK Note(HWND window, LPARAM list) {
    if (IsWindowVisible(window) && IsWindowEnabled(window)) {
        reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    }
    return TRUE;
}

}  // namespace

DisabledHostWindows::DisabledHostWindows() : mActive(GetActiveWindow()) {
    EnumThreadWindows(GetCurrentThreadId(), Note, reinterpret_cast<LPARAM>(&mDisabled));
    for (HWND window : mDisabled) EnableWindow(window, FALSE);
}

DisabledHostWindows::~DisabledHostWindows() {
    for (HWND window : mDisabled) EnableWindow(window, TRUE);
    if (mActive != nullptr && IsWindow(mActive)) SetForegroundWindow(mActive);
}

}  // namespace kelvane::host
