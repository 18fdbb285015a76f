// Conversions of values that the server computes, as PostgreSQL expressions.
#pragma once

#include <string>

#include "adapters/tsql/language/type.h"

namespace kelvane::tsql {

// The name the server's type of `type` has in a cast.
std::string_view PostgresType(Type type);

// `number`, an expression of any number type, as `type`, an integer type or money: fails with the
// dialect's overflow error where it does not fit.
std::string WithinRange(const std::string& number, Type type);

// `value` of type `from` converted to `to`; `style` is that of an explicit conversion. Throws
// DatabaseError for types that have no conversion.
std::string ConvertedInPostgres(const std::string& value, Type from, Type to, int style);

}  // namespace kelvane::tsql
