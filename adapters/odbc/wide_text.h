// Between the library's UTF-8 and ODBC's UTF-16. What is no text in one of them becomes U+FFFD.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "adapters/odbc/odbc_api.h"

namespace kelvane::odbc {

static_assert(sizeof(SQLWCHAR) == 2, "texts are handed to drivers as UTF-16");

using WideText = std::basic_string<SQLWCHAR>;

WideText ToWide(std::string_view text);

// Replaces `result`, whose memory is used again, by the `length` units at `text`.
void FromWide(const SQLWCHAR* text, std::size_t length, std::string& result);

}  // namespace kelvane::odbc
