// Under which names the component is known to the system.
#pragma once

#include "adapters/com/com_headers.h"
#include "kelvane_idl.h"

namespace kelvane::host {

inline constexpr const wchar_t* kProgId = L"Kelvane.PeriodItem";

// The type library's identity. It has no type from which __uuidof could take it, as the class and
// the interface have.
inline constexpr GUID kLibraryId = {
    0xE49CAAC1, 0xABE0, 0x4416, {0xA6, 0x31, 0x7C, 0xA3, 0xE7, 0x0D, 0x39, 0xE9}};

}  // namespace kelvane::host
