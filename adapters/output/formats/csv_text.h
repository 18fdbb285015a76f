// What csv files are made of, whatever is in them: UTF-8 with a byte-order mark, so that
// spreadsheets read the Chinese text, and otherwise as RFC 4180 has it.
#pragma once

#include <string>
#include <string_view>

namespace kelvane::output {

inline constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
inline constexpr std::string_view kCsvLineEnd = "\r\n";

// Appends `text` as a field, in quotes whatever it is; one that a spreadsheet would run as a
// formula behind an apostrophe.
void AppendCsvText(std::string& line, std::string_view text);

}  // namespace kelvane::output
