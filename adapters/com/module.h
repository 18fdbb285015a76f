// The file that this code was loaded from, and what of it is in use.
#pragma once

#include <filesystem>

#include "adapters/com/com_pointer.h"

namespace kelvane::com {

HINSTANCE ModuleHandle();

// Throws std::runtime_error when the system does not tell.
std::filesystem::path ModulePath();

// Objects and locks that keep the module loaded.
class ModuleUse {
public:
    static void Add() { InterlockedIncrement(&mCount); }
    // Returns how many are left.
    static long Remove() { return InterlockedDecrement(&mCount); }
    static bool None() { return mCount == 0; }

private:
    static inline LONG mCount = 0;
};

// The description of interface `id` in the module's own type library, found without registration.
// Returns the system's code.
HRESULT LoadTypeInfo(REFGUID id, ComPointer<ITypeInfo>& info);

}  // namespace kelvane::com
