// Letter case of keys and names, which differ by ASCII letters only.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace kelvane::data {

constexpr char LowerAscii(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                                : character;
}

inline std::string LowerAscii(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(),
                   [](char character) { return LowerAscii(character); });
    return result;
}

constexpr bool EqualIgnoringCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char left, char right) { return LowerAscii(left) == LowerAscii(right); });
}

}  // namespace kelvane::data
