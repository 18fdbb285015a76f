// Numbers and dates as a grid shows them, read back without rounding.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/date_time.h"
#include "platform/grid_text.h"

namespace kelvane::output {

// "1,234.50" is digits "1234.50" with 2 decimals.
struct NumberText {
    std::string digits;  // perhaps with a minus sign and a decimal point
    int decimals = 0;
    int significant = 0;  // digits from the first that is not 0
};

// Nothing for a text that is no number, such as a code with leading zeros.
std::optional<NumberText> ReadNumber(std::string_view text);

// The number in a cell of `column`: one that holds numbers, or that is aligned as numbers are.
std::optional<NumberText> CellNumber(const platform::ColumnText& column, std::string_view cell);

// The date in a cell of a column of dates.
std::optional<platform::DateTime> CellDate(const platform::ColumnText& column,
                                           std::string_view cell);

}  // namespace kelvane::output
