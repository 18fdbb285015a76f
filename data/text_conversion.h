// How texts of the windows and of the account database become numbers. Three readings exist side by
// side and are not interchangeable: the leading number, the whole text, and the display conversion.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/decimal.h"
#include "platform/money.h"

namespace kelvane::data {

// `text` without the blanks (U+0020) at both ends.
std::string Trim(std::string_view text);

// The number a text begins with, 0 when there is none: blanks are skipped, reading stops at the
// first other character that cannot continue a number ("12abc" and "1 2" are both 12).
platform::Decimal LeadingNumber(std::string_view text);

// Whether the whole text is a number: blanks at the ends, a sign, grouping commas, decimals and an
// exponent are understood.
bool IsNumericText(std::string_view text);

// Nearest whole number, half to even. Throws std::range_error when it does not fit.
std::int64_t RoundHalfEven(const platform::Decimal& number);

// `number` as a 16-bit integer. Throws std::range_error when it does not fit.
std::int16_t ShortInteger(std::int64_t number);

// The whole text as a 16-bit integer, half to even. Throws std::invalid_argument when it is not a
// number (the empty text is none) and std::range_error when it does not fit.
std::int16_t ShortIntegerOf(std::string_view text);

// The display conversion: the amount or number of "0" followed by `text`, so that an empty text is
// 0. A sign then stands inside the number: "-5" is an error.
// Throws platform::MoneyTextError and platform::MoneyOverflow.
platform::Money MoneyOfDisplay(std::string_view text);
// Throws std::invalid_argument and std::range_error.
double DoubleOfDisplay(std::string_view text);

}  // namespace kelvane::data
