// Numbers as the windows show them: fixed decimals by kind, optionally with grouping commas. Exact
// on amounts, integers and decimal texts; what the format cannot show is rounded half away from 0.
#pragma once

#include <cstdint>
#include <string>

#include "platform/decimal.h"
#include "platform/money.h"
#include "platform/value.h"

namespace kelvane::data {

inline constexpr std::int16_t kPriceKind = 1;
inline constexpr std::int16_t kQuantityKind = 2;
inline constexpr std::int16_t kMoneyKind = 3;
inline constexpr std::int16_t kRateKind = 4;

// Decimal places of a kind, as the login context has them; 2 for a number that is no kind.
int DecimalPlaces(std::int16_t kind);

// `number` with `places` decimals. With 0 places the text ends in the decimal point ("12.").
std::string FormatDecimal(const platform::Decimal& number, int places, bool thousands);

// A number or a numeric text in the format of its kind. Null and texts of nothing but blanks give
// empty text, any other value comes back as its text.
std::string NumFormatText(const platform::Value& value, std::int16_t kind, bool thousands);

// An amount as the windows show it, with grouping commas.
std::string DisplayOfMoney(platform::Money amount);

}  // namespace kelvane::data
