// Texts at the boundary to COM: UTF-8 inside, UTF-16 outside.
#pragma once

#include <windows.h>
// After <windows.h>, which it needs.
#include <oleauto.h>

#include <string>
#include <string_view>

namespace kelvane::automation {

std::wstring ToWide(std::string_view utf8);
std::string ToUtf8(std::wstring_view wide);

// A BSTR of the text, which the caller frees. Throws std::bad_alloc.
BSTR NewBstr(std::string_view utf8);

// The whole text of a BSTR; null is empty.
std::string TextOf(BSTR text);

}  // namespace kelvane::automation
