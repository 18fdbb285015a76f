// Reads UTF-8 text character by character; what is no UTF-8 reads as U+FFFD, one byte at a time.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kelvane::output {

inline constexpr char32_t kReplacement = U'\uFFFD';

struct Utf8Character {
    char32_t value = 0;
    std::size_t length = 0;  // in bytes
    bool valid = true;
};

// The first character of `text`, which is not empty.
Utf8Character FirstCharacter(std::string_view text);

// `text` with U+FFFD for every byte that is no UTF-8 and for what cannot be shown on one line.
std::string ReadableUtf8(std::string_view text);

}  // namespace kelvane::output
