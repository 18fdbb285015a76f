// Letter case of the names that settings and connection strings are made of.
#pragma once

#include <algorithm>
#include <string_view>

namespace kelvane::host {

constexpr char LowerAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr bool EqualIgnoringCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char left, char right) { return LowerAscii(left) == LowerAscii(right); });
}

}  // namespace kelvane::host
