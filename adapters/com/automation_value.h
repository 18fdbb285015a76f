// How the library's values travel in automation variants, in both directions without loss: amounts
// never through binary floating point, dates to the database's three-hundredths of a second.
#pragma once

#include <string>

#include "adapters/com/variant.h"
#include "platform/date_time.h"
#include "platform/value.h"

namespace kelvane::com {

// Null for VT_NULL, VT_EMPTY and Nothing; a flag is 1 or 0; a decimal number is an integer when it
// was kept without decimals, an amount when four decimals hold it, and its text otherwise. Throws
// std::invalid_argument for a kind that no column has (arrays, objects).
platform::Value ToValue(const VARIANT& variant);

// Amounts as VT_CY, dates as VT_DATE, whole numbers as VT_I4 when they fit and VT_I8 otherwise.
Variant ToVariant(const platform::Value& value);

// Days since 1899-12-30 with the time as their fraction; before that day the fraction is counted
// away from it. FromDateNumber throws std::invalid_argument for a day outside year 100 to 9999.
double ToDateNumber(const platform::DateTime& date);
platform::DateTime FromDateNumber(double number);

// All digits of `number`, with its decimals: "-12.3400".
std::string DecimalText(const DECIMAL& number);

}  // namespace kelvane::com
