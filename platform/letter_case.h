// Letter case as the account database compares texts: of Latin, Greek, Cyrillic and full-width
// letters. For names of the program's own see platform/ascii.h.
#pragma once

#include <string>
#include <string_view>

namespace kelvane::platform {

// The small letter of a capital one; everything else stays as it is.
char32_t SmallLetter(char32_t letter);

// Whether there is a small and a capital form of it. ASCII's letters do not count.
bool HasWideCase(char32_t letter);

// `text` (UTF-8) in small letters.
std::string InSmallLetters(std::string_view text);

// What the account database compares of a text: without letter case and the blanks at its end. Two
// codes are the same for it when these texts are.
std::string ComparedText(std::string_view text);

}  // namespace kelvane::platform
