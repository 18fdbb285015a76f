// UTF-8 text character by character. What is no UTF-8 (overlong forms, surrogates, code points
// beyond U+10FFFF, characters that are cut off) reads as U+FFFD, one byte at a time, so that every
// part of the program counts and compares a damaged text in the same way.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kelvane::platform {

inline constexpr char32_t kReplacement = U'\uFFFD';
inline constexpr std::string_view kReplacementText = "\uFFFD";
inline constexpr char32_t kMaxCharacter = 0x10FFFF;

struct Utf8Character {
    char32_t value = 0;
    unsigned length = 0;  // in bytes
    bool valid = true;    // false: a byte that is no UTF-8
};

// The first character of `text`, which does not begin with an ASCII character and is not empty.
Utf8Character FirstWideCharacter(std::string_view text);

// The first character of `text`, which is not empty.
inline Utf8Character FirstCharacter(std::string_view text) {
    const auto byte = static_cast<unsigned char>(text.front());
    if (byte < 0x80) return {byte, 1, true};
    return FirstWideCharacter(text);
}

// The same, taken off `text`.
inline Utf8Character TakeCharacter(std::string_view& text) {
    const Utf8Character first = FirstCharacter(text);
    text.remove_prefix(first.length);
    return first;
}

constexpr bool IsSurrogate(char32_t value) {
    return value >= 0xD800 && value <= 0xDFFF;
}

// Appends one character as UTF-8; what is no character is left out.
void AppendCharacter(std::string& text, char32_t character);

// Length of `text` in characters.
std::size_t CountCharacters(std::string_view text);

// Bytes of `text` in the Chinese code page: one for an ASCII character, two for any other.
std::size_t CodePageLength(std::string_view text);

// The first `count` characters of `text`; the whole text when it has no more.
std::string_view FirstCharacters(std::string_view text, std::size_t count);

// Takes the last character away; nothing happens to an empty text.
void DropLastCharacter(std::string& text);

}  // namespace kelvane::platform
