// Characters of UTF-8 text, for the controls that are typed into.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kelvane::controls {

// Appends one character as UTF-8; what is no character is left out.
void AppendUtf8(std::string& text, char32_t character);

// Length of `text` in characters.
std::size_t CountUtf8(std::string_view text);

// The first `count` characters of `text`.
std::string_view FirstUtf8(std::string_view text, std::size_t count);

// Takes the last character away; nothing happens to an empty text.
void DropLastUtf8(std::string& text);

}  // namespace kelvane::controls
