#include "tests/windows/host_process/test_host.h"

namespace kelvane::windows_test {

namespace {

constexpr const wchar_t* kWindowClass = L"KelvaneTestHost";
constexpr UINT kMilliseconds = 15;

}  // namespace

TestHost::TestHost(const std::string& connectionString) : HostObjects(connectionString) {
    WNDCLASSW description{};
    description.lpfnWndProc = OnMessage;
    description.lpszClassName = kWindowClass;
    RegisterClassW(&description);
    mWindow = CreateWindowW(kWindowClass, L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 50, 50, 400,
                            300, nullptr, nullptr, nullptr, nullptr);
    SetWindowLongPtrW(mWindow, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    SetActiveWindow(mWindow);
    SetTimer(mWindow, 1, kMilliseconds, nullptr);
}

TestHost::~TestHost() {
    DestroyWindow(mWindow);
    UnregisterClassW(kWindowClass, nullptr);
}

// The component's own loop delivers the host's messages as well.
LRESULT CALLBACK TestHost::OnMessage(HWND window, UINT message, WPARAM w, LPARAM l) {
    const LONG_PTR host = GetWindowLongPtrW(window, GWLP_USERDATA);
    if (message != WM_TIMER || host == 0) return DefWindowProcW(window, message, w, l);
    EnumThreadWindows(GetCurrentThreadId(), Look, host);
    return 0;
}

BOOL CALLBACK TestHost::Look(HWND window, LPARAM self) {
    auto& host = *reinterpret_cast<TestHost*>(self);
    if (window == host.mWindow || !IsWindowVisible(window)) return TRUE;
    const HWND owner = GetWindow(window, GW_OWNER);
    if (owner == nullptr) ++host.strangeWindows;
    if (owner != host.mWindow) return TRUE;
    ++host.ownedWindows;
    if (host.atShown) std::exchange(host.atShown, {})();
    return TRUE;
}

}  // namespace kelvane::windows_test
