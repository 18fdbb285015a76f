// Between the library's UTF-8 and ODBC's UTF-16. What is no text in one of them becomes U+FFFD.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "adapters/odbc/odbc_api.h"
#include "platform/utf16.h"

namespace kelvane::odbc {

using WideText = std::basic_string<SQLWCHAR>;

inline WideText ToWide(std::string_view text) {
    return platform::ToUtf16<SQLWCHAR>(text);
}

// Replaces `result`, whose memory is used again, by the `length` units at `text`.
inline void FromWide(const SQLWCHAR* text, std::size_t length, std::string& result) {
    platform::ReadUtf16(text, length, result);
}

}  // namespace kelvane::odbc
