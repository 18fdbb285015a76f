// Names and texts between quotes, as standard SQL writes them.
#pragma once

#include <string>
#include <string_view>

namespace kelvane::tsql {

inline std::string Between(char quote, std::string_view content) {
    std::string result(1, quote);
    for (const char c : content) {
        if (c == quote) result += quote;
        result += c;
    }
    return result + quote;
}

inline std::string QuotedName(std::string_view name) {
    return Between('"', name);
}

inline std::string QuotedText(std::string_view text) {
    return Between('\'', text);
}

}  // namespace kelvane::tsql
