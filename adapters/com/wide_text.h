// Texts at the system's boundary: UTF-8 inside, UTF-16 outside.
#pragma once

#include <string>
#include <string_view>

#include "adapters/com/com_headers.h"

namespace kelvane::com {

// What is not valid in one encoding becomes U+FFFD in the other.
std::wstring WideText(std::string_view utf8);
std::string NarrowText(std::wstring_view utf16);

// The text of a BSTR; null is empty.
std::string TextOf(BSTR text);

// A text in the system's own code page, as calls without wide characters give it.
std::string TextOfCodePage(std::string_view bytes);

// The system's sentence for an error code, without the line break at its end, or the code itself in
// hexadecimal when there is none.
std::string SystemText(HRESULT code);

// The value of an environment variable as it is now; empty when it is not set.
std::wstring EnvironmentText(const wchar_t* name);

}  // namespace kelvane::com
