// The blank (U+0020) as the account database and the windows' texts treat it: it alone is cut from
// the ends of a value, other white space stays.
#pragma once

#include <string_view>

namespace kelvane::platform {

// `text` without the blanks at its end.
constexpr std::string_view WithoutEndBlanks(std::string_view text) {
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

// `text` without the blanks at both ends.
constexpr std::string_view WithoutOuterBlanks(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace kelvane::platform
