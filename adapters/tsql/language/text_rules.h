// How the dialect treats text: comparing without regard to letter case and trailing blanks, LIKE
// patterns, and a text's length in the bytes of the account's code page. Texts are UTF-8.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kelvane::tsql {

// Negative, 0 or positive as `a` sorts before, with or after `b`: without regard to letter case
// (Latin, Greek, Cyrillic and full-width letters) and trailing blanks, by code point otherwise.
int CompareText(std::string_view a, std::string_view b);

// The text as texts are compared: two are equal when their folded texts are. Its trailing blanks
// are kept.
std::string FoldedText(std::string_view text);

// The letters with a case that are not ASCII's, and at the same places what they are folded to.
struct CaseLetters {
    std::string upper;
    std::string lower;
};
CaseLetters CasedLetters();

// True when the text's only letters with a case are ASCII's, so that comparing it needs no more
// than ASCII's letter case.
bool HasOnlyAsciiCase(std::string_view text);

// The beginning of the text before its first letter with a case that is not ASCII's; the whole
// text when there is none.
std::string_view AsciiCasedPart(std::string_view text);

// The text without its trailing blanks.
std::string_view TrimEnd(std::string_view text);

// Whether the whole of `text` matches the LIKE pattern: "%", "_", "[a-z]" and "[^a-z]", letter case
// ignored, trailing blanks significant on both sides.
bool MatchesPattern(std::string_view text, std::string_view pattern);

// Length of `text` in UTF-16 units.
std::size_t WideLength(std::string_view text);

// The longest beginning of `text` that fits `length` code page bytes, or UTF-16 units when `wide`;
// never a part of a character.
std::string_view FirstPart(std::string_view text, std::size_t length, bool wide);

}  // namespace kelvane::tsql
