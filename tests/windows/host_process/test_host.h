// A host in this process: its window, its login and environment objects, and the account that they
// lead to.
#pragma once

#include <functional>

#include "adapters/windows/dispatch_object.h"
#include "tests/windows/unit/fake_object.h"

namespace kelvane::windows_test {

class TestHost {
public:
    // `connectionString`: of an account with the sample company, over ADO.
    explicit TestHost(const std::string& connectionString);
    ~TestHost();
    TestHost(const TestHost&) = delete;
    TestHost& operator=(const TestHost&) = delete;

    IDispatch* Login() { return &mLogin; }
    IDispatch* Environment() { return &mEnvironment; }
    HWND Window() const { return mWindow; }
    // References that others hold to its objects.
    ULONG HeldReferences() const { return mLogin.References() + mEnvironment.References() - 2; }

    // Called while the component reads through the host's data access.
    std::function<void()> atQuery;
    // Windows seen beside the host's own while it was shown: those that it owns, and the others.
    int ownedWindows = 0;
    int strangeWindows = 0;

private:
    static LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM w, LPARAM l);
    static BOOL CALLBACK Look(HWND window, LPARAM host);
    Variant Query(const Variant& statement);

    windows::DispatchObject mConnection;
    HWND mWindow = nullptr;
    // Parts outlive what holds them.
    FakeObject mUnit;
    FakeObject mOperator;
    FakeObject mAccount;
    FakeObject mDataAccess;
    FakeObject mLogin;
    FakeObject mEnvironment;
};

}  // namespace kelvane::windows_test
