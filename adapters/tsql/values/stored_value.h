// How values lie in an engine that keeps amounts and dates as text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "adapters/tsql/values/conversion.h"

namespace kelvane::tsql {

// What a column of type `column` stores for a value of the same type: money as text with four
// decimals, everything else as it is. Throws DatabaseError (8152) naming the column when a text
// does not fit; blanks at its end never make it too long.
Datum Stored(Datum value, Type column, std::string_view columnName);

// The value of a stored one. Throws as Convert() does for what other programs may have put there.
Datum Loaded(Datum stored, Type column);

// Exact four-decimal text of an amount, and its reading; the reading takes any amount text.
std::string MoneyText(std::int64_t units);
std::int64_t MoneyUnits(std::string_view text);

}  // namespace kelvane::tsql
