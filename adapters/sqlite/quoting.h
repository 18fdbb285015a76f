// Names as SQLite's dialect writes them.
#pragma once

#include <string>
#include <string_view>

namespace kelvane::sqlite {

inline std::string QuotedName(std::string_view name) {
    std::string result = "\"";
    for (const char c : name) {
        if (c == '"') result += '"';
        result += c;
    }
    return result + '"';
}

}  // namespace kelvane::sqlite
