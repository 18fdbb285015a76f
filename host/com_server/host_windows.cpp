#include "host/com_server/host_windows.h"

#include "adapters/com/module.h"

namespace kelvane::host {

namespace {

// Who owns our windows: the hook below gets nothing that could say so.
HWND gOwner = nullptr;

BOOL CALLBACK Note(HWND window, LPARAM list) {
    if (IsWindowVisible(window) && IsWindowEnabled(window)) {
        reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    }
    return TRUE;
}

bool IsOurs(HWND window) {
    const auto module = reinterpret_cast<HINSTANCE>(GetWindowLongPtrW(window, GWLP_HINSTANCE));
    return module == com::ModuleHandle();
}

// The toolkit knows no windows but its own, so the owner is given as soon as one becomes active.
LRESULT CALLBACK GiveOwner(int code, WPARAM window, LPARAM details) {
    const auto activated = reinterpret_cast<HWND>(window);
    if (code == HCBT_ACTIVATE && GetWindow(activated, GW_OWNER) == nullptr && IsOurs(activated)) {
        SetWindowLongPtrW(activated, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(gOwner));
    }
    return CallNextHookEx(nullptr, code, window, details);
}

}  // namespace

DisabledHostWindows::DisabledHostWindows() : mActive(GetActiveWindow()) {
    EnumThreadWindows(GetCurrentThreadId(), Note, reinterpret_cast<LPARAM>(&mDisabled));
    for (HWND window : mDisabled) EnableWindow(window, FALSE);
    if (mActive == nullptr) return;
    gOwner = mActive;
    mHook = SetWindowsHookExW(WH_CBT, GiveOwner, nullptr, GetCurrentThreadId());
}

DisabledHostWindows::~DisabledHostWindows() {
    if (mHook != nullptr) UnhookWindowsHookEx(mHook);
    gOwner = nullptr;
    for (HWND window : mDisabled) EnableWindow(window, TRUE);
    if (mActive != nullptr && IsWindow(mActive)) SetForegroundWindow(mActive);
}

}  // namespace kelvane::host
