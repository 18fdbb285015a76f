// Dates as the dialect reads and writes them. A date is kept as "yyyy-mm-dd hh:mm:ss.mmm".
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "adapters/tsql/language/type.h"

namespace kelvane::tsql {

// Reads "yyyy-m-d" with any of "-", "/" and "." between, or "yyyymmdd", with an optional time
// "hh:mm[:ss[.mmm]]" behind a blank or "T"; blank text is 1900-01-01. Times are rounded to 1/300
// second. `from`: the text's type, for messages. Throws DatabaseError: 241 for what is no date,
// 242 for one that does not exist or lies before 1753.
std::string TextToDate(std::string_view text, Type from);

// The midnight `days` after 1900-01-01. Throws DatabaseError (8115) outside 1753 to 9999.
std::string DaysToDate(std::int64_t days);

// A date as text in one of the dialect's styles: 0, 23, 100, 102, 111, 112, 120 and 121. Throws
// DatabaseError (281) for other styles.
std::string DateToText(std::string_view date, int style);

}  // namespace kelvane::tsql
