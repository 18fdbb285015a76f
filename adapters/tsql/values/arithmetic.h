// Arithmetic as the dialect does it: checked, exact for integers and money.
#pragma once

#include <cstdint>

#include "adapters/tsql/values/conversion.h"

namespace kelvane::tsql {

// `a` `op` `b`, both of type `type`; `op` is one of + - * / %. Null with anything is Null. Integer
// division cuts off, money is rounded at the fourth decimal. Throws DatabaseError 8115 and 8134.
Datum Arithmetic(char op, Type type, const Datum& a, const Datum& b);

// Adds checked; throws DatabaseError 8115.
std::int64_t CheckedSum(std::int64_t a, std::int64_t b, Type type);

// `value` within the range of `type`, an integer type or money; throws DatabaseError 8115.
std::int64_t CheckedRange(std::int64_t value, Type type);

}  // namespace kelvane::tsql
