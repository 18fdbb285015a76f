// A host's login and environment objects, and the account that they lead to.
#pragma once

#include <functional>

#include "adapters/com/dispatch_object.h"
#include "tests/windows/unit/fake_object.h"

namespace kelvane::windows_test {

class HostObjects {
public:
    // `connectionString`: of an account with the sample company, over ADO.
    explicit HostObjects(const std::string& connectionString);

    IDispatch* Login() { return &mLogin; }
    IDispatch* Environment() { return &mEnvironment; }
    // References that others hold to its objects.
    ULONG HeldReferences() const { return mLogin.References() + mEnvironment.References() - 2; }

    // Called once, while the component reads through the host's data access.
    std::function<void()> atQuery;

private:
    Variant Query(const Variant& statement);

    com::DispatchObject mConnection;
    // Parts outlive what holds them.
    FakeObject mUnit;
    FakeObject mOperator;
    FakeObject mAccount;
    FakeObject mDataAccess;
    FakeObject mLogin;
    FakeObject mEnvironment;
};

}  // namespace kelvane::windows_test
