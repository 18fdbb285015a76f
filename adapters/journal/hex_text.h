// Bytes as lower-case hexadecimal digits.
#pragma once

#include <string>
#include <string_view>

namespace kelvane::journal {

inline std::string HexOf(std::string_view bytes) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string hex;
    hex.reserve(bytes.size() * 2);
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        hex += kDigits[value / 16];
        hex += kDigits[value % 16];
    }
    return hex;
}

}  // namespace kelvane::journal
