// Names as SQLite's dialect writes them.
#pragma once

#include "adapters/tsql/language/quoted_text.h"

namespace kelvane::tsql {

inline std::string QuotedForSqlite(std::string_view name) {
    return QuotedName(name);
}

}  // namespace kelvane::tsql
