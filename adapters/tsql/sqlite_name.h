// Names as SQLite's dialect writes them.
#pragma once

#include <string>
#include <string_view>

namespace kelvane::tsql {

inline std::string QuotedForSqlite(std::string_view name) {
    std::string result = "\"";
    for (const char c : name) {
        if (c == '"') result += '"';
        result += c;
    }
    return result + '"';
}

}  // namespace kelvane::tsql
