// How wide a text is on a terminal.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "platform/utf8.h"

namespace kelvane::host {

struct CharacterRange {
    char32_t first;
    char32_t last;
};

// Characters that take two columns: those of Chinese, Japanese and Korean with their marks,
// full-width forms and pictures.
inline constexpr std::array kWideCharacters{
    CharacterRange{0x1100, 0x115F},   CharacterRange{0x2E80, 0x303E},
    CharacterRange{0x3041, 0x3247},   CharacterRange{0x3250, 0x4DBF},
    CharacterRange{0x4E00, 0xA4CF},   CharacterRange{0xA960, 0xA97F},
    CharacterRange{0xAC00, 0xD7A3},   CharacterRange{0xF900, 0xFAFF},
    CharacterRange{0xFE10, 0xFE19},   CharacterRange{0xFE30, 0xFE6F},
    CharacterRange{0xFF01, 0xFF60},   CharacterRange{0xFFE0, 0xFFE6},
    CharacterRange{0x1F300, 0x1F64F}, CharacterRange{0x1F680, 0x1F6FF},
    CharacterRange{0x1F900, 0x1F9FF}, CharacterRange{0x20000, 0x3FFFD}};

// All others take one.
constexpr bool IsWide(char32_t character) {
    return character >= kWideCharacters.front().first &&
           std::ranges::any_of(kWideCharacters, [character](const CharacterRange& range) {
               return character >= range.first && character <= range.last;
           });
}

inline std::size_t ColumnsOf(std::string_view text) {
    std::size_t columns = 0;
    while (!text.empty()) columns += IsWide(platform::TakeCharacter(text).value) ? 2U : 1U;
    return columns;
}

}  // namespace kelvane::host
