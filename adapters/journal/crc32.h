// The checksum of a line (CRC-32 as in ISO 3309): it finds every damage of a few bytes.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace kelvane::journal {

inline constexpr auto kCrcTable = [] {
    constexpr std::uint32_t kPolynomial = 0xEDB88320U;
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t byte = 0; byte < table.size(); ++byte) {
        std::uint32_t value = byte;
        for (int bit = 0; bit < 8; ++bit) {
            value = (value & 1U) != 0 ? (value >> 1U) ^ kPolynomial : value >> 1U;
        }
        table[byte] = value;
    }
    return table;
}();

constexpr std::uint32_t Crc32(std::string_view bytes) {
    std::uint32_t value = 0xFFFFFFFFU;
    for (const char byte : bytes) {
        value = (value >> 8U) ^ kCrcTable[(value ^ static_cast<unsigned char>(byte)) & 0xFFU];
    }
    return value ^ 0xFFFFFFFFU;
}

}  // namespace kelvane::journal
