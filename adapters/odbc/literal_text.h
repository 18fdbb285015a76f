// Values and names as texts of the SQL Server dialect.
#pragma once

#include <string>
#include <string_view>

#include "adapters/tsql/values/conversion.h"

namespace kelvane::odbc {

// A value as it is stored in a column of type `type`. Amounts are texts with four decimals, dates
// texts. A text with other characters than ASCII's is a wide one.
std::string LiteralText(const tsql::Datum& value, tsql::Type type);

// A name, in brackets where it needs them: beyond ASCII, servers and their versions differ in the
// letters that a plain name may have.
std::string NameText(std::string_view name);

}  // namespace kelvane::odbc
