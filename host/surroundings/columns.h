// How wide a text is on a terminal.
#pragma once

#include <cstddef>
#include <string_view>

#include "platform/utf8.h"

namespace kelvane::host {

// A Chinese letter or mark takes two columns, everything else one.
constexpr bool IsWide(char32_t character) {
    constexpr char32_t kFirstWide = 0x1100;
    return character >= kFirstWide;
}

inline std::size_t ColumnsOf(std::string_view text) {
    std::size_t columns = 0;
    while (!text.empty()) columns += IsWide(platform::TakeCharacter(text).value) ? 2U : 1U;
    return columns;
}

}  // namespace kelvane::host
