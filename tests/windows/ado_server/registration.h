// Where the server's classes are registered: in the machine's branch of a throwaway Wine prefix,
// and nowhere else. On a computer that somebody uses, the object library is the system's.
#pragma once

#include <windows.h>

#include <string>

namespace kelvane::ado_server {

struct ServedClass {
    const wchar_t* programId;
    const wchar_t* classId;
};

inline constexpr ServedClass kServedClasses[] = {
    {L"ADODB.Connection", L"{B7A9B3F2-5C0E-4F86-9C2E-3B1D5A6E7F10}"},
    {L"ADODB.Recordset", L"{B7A9B3F2-5C0E-4F86-9C2E-3B1D5A6E7F11}"},
};

// The path of this module's file.
std::wstring ModulePath();

// E_ACCESSDENIED outside a prefix that was made for the tests.
HRESULT Register();
HRESULT Unregister();

}  // namespace kelvane::ado_server
