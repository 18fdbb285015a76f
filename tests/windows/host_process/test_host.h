// A host in this process: its window, and the objects that it hands to the component.
#pragma once

#include "tests/windows/host_process/host_objects.h"

namespace kelvane::windows_test {

class TestHost : public HostObjects {
public:
    explicit TestHost(const std::string& connectionString);
    ~TestHost();
    TestHost(const TestHost&) = delete;
    TestHost& operator=(const TestHost&) = delete;

    HWND Window() const { return mWindow; }

    // Called once, when a window that the host's window owns is seen.
    std::function<void()> atShown;
    // Windows seen beside the host's own while it was shown: those that it owns, and the others.
    int ownedWindows = 0;
    int strangeWindows = 0;

private:
    static LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM w, LPARAM l);
    static BOOL CALLBACK Look(HWND window, LPARAM host);

    HWND mWindow = nullptr;
};

}  // namespace kelvane::windows_test
