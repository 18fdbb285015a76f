// Which numbers of a workbook are dates, which their format alone tells, and what day they stand
// for.
#pragma once

#include <string_view>

#include "platform/date_time.h"

namespace kelvane::tables {

// Whether the format that every program knows by this number shows dates or times.
bool IsBuiltInDateFormat(int number);

// The same of a format that is written out ("yyyy\"年\"m\"月\"", "[$-804]m/d/yy;@").
bool IsDateFormat(std::string_view code);

// From which day on a workbook counts.
enum class DateSystem { From1900, From1904 };

// The date that `number` (its digits, perhaps with an exponent) stands for, its fraction the time
// of day in whole seconds; a date that is not valid when it stands for none. February of 1900 has
// 29 days in the older system, of which the last is none.
platform::DateTime DateOfNumber(std::string_view number, DateSystem system);

}  // namespace kelvane::tables
