// Dates as the windows show them: "yyyy.mm.dd", four-digit year. Loosely typed dates are brought
// into that form, impossible ones are refused.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/date_time.h"

namespace kelvane::data {

// Stands for an absent date; shown as empty text.
inline constexpr platform::DateTime kNullDate{100, 1, 1};
inline constexpr std::string_view kNullDateText = "0100.01.01";

// Reads year, month and day separated by "-", "." or "/". On success `text` becomes the canonical
// text; otherwise it keeps its content. A year below 100 lies in 1930 to 2029.
bool CheckDateText(std::string& text);

// The date of a text that CheckDateText accepts; the null date for any other.
platform::DateTime DateTextToDate(const std::string& text);

// The canonical text; empty when there is no date.
std::string DateToText(const std::optional<platform::DateTime>& date);

// The canonical text of `text`, or empty text when it is no date or the null date. `text` becomes
// the canonical text, and "0100.01.01" when it was no date.
std::string DateTextOrEmpty(std::string& text);

}  // namespace kelvane::data
