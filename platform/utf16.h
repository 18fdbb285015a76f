// Between the program's UTF-8 and the UTF-16 of systems and drivers, whose units have types of
// their own. What is no text in one of them becomes U+FFFD in the other.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/utf8.h"

namespace kelvane::platform {

template <typename Unit>
std::basic_string<Unit> ToUtf16(std::string_view text) {
    static_assert(sizeof(Unit) == 2);
    std::basic_string<Unit> units;
    units.reserve(text.size());
    while (!text.empty()) {
        const char32_t value = TakeCharacter(text).value;
        if (value < 0x10000) {
            units += static_cast<Unit>(value);
        } else {
            units += static_cast<Unit>(0xD800 + ((value - 0x10000) >> 10U));
            units += static_cast<Unit>(0xDC00 + ((value - 0x10000) & 0x3FFU));
        }
    }
    return units;
}

// Replaces `text`, whose memory is used again, by the `length` units at `units`.
template <typename Unit>
void ReadUtf16(const Unit* units, std::size_t length, std::string& text) {
    static_assert(sizeof(Unit) == 2);
    constexpr char32_t kFirstTrail = 0xDC00;
    text.clear();
    for (std::size_t at = 0; at < length; ++at) {
        char32_t value = units[at];
        if (IsSurrogate(value)) {
            const char32_t next = at + 1 < length ? units[at + 1] : 0;
            const bool isPair = value < kFirstTrail && IsSurrogate(next) && next >= kFirstTrail;
            if (isPair) ++at;
            value =
                isPair ? 0x10000 + ((value - 0xD800) << 10U) + (next - kFirstTrail) : kReplacement;
        }
        AppendCharacter(text, value);
    }
}

}  // namespace kelvane::platform
