// A host's login and environment objects as a program finds them that knows their names alone.
// Their account is the one whose connection string KELVANE_TEST_ACCOUNT holds.
#include <array>

#include "adapters/com/wide_text.h"
#include "tests/windows/automation/module.h"
#include "tests/windows/automation/server.h"
#include "tests/windows/host_process/host_objects.h"

namespace kelvane {
namespace {

// The objects stay until the process ends, and the server with them.
windows_test::HostObjects& Objects() {
    static auto* const objects = [] {
        automation::ObjectMade();
        return new windows_test::HostObjects(
            com::NarrowText(com::EnvironmentText(L"KELVANE_TEST_ACCOUNT")));
    }();
    return *objects;
}

IDispatch* Given(IDispatch* object) {
    object->AddRef();
    return object;
}

constexpr std::array kClasses{
    automation::ServedClass{L"KelvaneTests.Login", L"{B7A9B3F2-5C0E-4F86-9C2E-3B1D5A6E7F12}",
                            [] { return Given(Objects().Login()); }},
    automation::ServedClass{L"KelvaneTests.Environment", L"{B7A9B3F2-5C0E-4F86-9C2E-3B1D5A6E7F13}",
                            [] { return Given(Objects().Environment()); }},
};

}  // namespace

std::span<const automation::ServedClass> automation::ServedClasses() {
    return kClasses;
}

}  // namespace kelvane
