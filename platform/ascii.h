// Letter case of ASCII alone: keywords, names of tables and columns, keys of settings and of
// connection strings. Whatever is not an ASCII letter stays as it is, bytes of UTF-8 included.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace kelvane::platform {

constexpr char LowerAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
constexpr char UpperAscii(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

// Whether every character is one of ASCII.
constexpr bool IsAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

constexpr bool EqualIgnoringCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return LowerAscii(x) == LowerAscii(y); });
}

inline std::string LowerAscii(std::string_view text) {
    std::string result(text);
    for (char& c : result) c = LowerAscii(c);
    return result;
}

inline std::string UpperAscii(std::string_view text) {
    std::string result(text);
    for (char& c : result) c = UpperAscii(c);
    return result;
}

}  // namespace kelvane::platform
