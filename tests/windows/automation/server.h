// A COM server of the tests': its classes, and registering them in the machine's branch of a
// throwaway Wine prefix and nowhere else. On a computer that somebody uses, the objects are
// others'.
#pragma once

#include <windows.h>

#include <span>
#include <string>

namespace kelvane::automation {

struct ServedClass {
    const wchar_t* programId;
    const wchar_t* classId;
    // Makes an object with one reference, the caller's. Throws nothing.
    IDispatch* (*make)();
};

// Each server's own table.
std::span<const ServedClass> ServedClasses();

// The path of this module's file.
std::wstring ModulePath();

// E_ACCESSDENIED outside a prefix that was made for the tests.
HRESULT Register();
HRESULT Unregister();

}  // namespace kelvane::automation
