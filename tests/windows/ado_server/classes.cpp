// The classes that this server stands in for.
#include <array>

#include "tests/windows/ado_server/connection.h"
#include "tests/windows/ado_server/record_set.h"
#include "tests/windows/automation/server.h"

namespace kelvane {
namespace {

template <typename Class>
IDispatch* Make() {
    return new Class;
}

constexpr std::array kClasses{
    automation::ServedClass{L"ADODB.Connection", L"{B7A9B3F2-5C0E-4F86-9C2E-3B1D5A6E7F10}",
                            &Make<ado_server::Connection>},
    automation::ServedClass{L"ADODB.Recordset", L"{B7A9B3F2-5C0E-4F86-9C2E-3B1D5A6E7F11}",
                            &Make<ado_server::RecordSet>},
};

}  // namespace

std::span<const automation::ServedClass> automation::ServedClasses() {
    return kClasses;
}

}  // namespace kelvane
