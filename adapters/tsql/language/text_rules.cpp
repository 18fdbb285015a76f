#include "adapters/tsql/language/text_rules.h"

#include <string>

#include "platform/blanks.h"
#include "platform/letter_case.h"
#include "platform/utf8.h"

namespace kelvane::tsql {

namespace {

using platform::AppendCharacter;
using platform::SmallLetter;
using platform::TakeCharacter;

std::u32string Folded(std::string_view text) {
    std::u32string result;
    result.reserve(text.size());
    while (!text.empty()) result += SmallLetter(TakeCharacter(text).value);
    return result;
}

std::size_t Width(char32_t character, bool wide) {
    if (wide) return character > 0xFFFF ? 2 : 1;
    return character < 0x80 ? 1 : 2;
}

// Matches one character against the class whose "[" has been taken; moves `at` behind its "]".
// A class that is never closed matches nothing.
bool MatchesClass(char32_t character, const std::u32string& pattern, std::size_t& at) {
    const bool negated = at < pattern.size() && pattern[at] == U'^';
    if (negated) ++at;
    bool found = false;
    for (bool first = true;; first = false) {
        if (at >= pattern.size()) return false;
        const char32_t low = pattern[at++];
        if (low == U']' && !first) return found != negated;
        char32_t high = low;
        if (at + 1 < pattern.size() && pattern[at] == U'-' && pattern[at + 1] != U']') {
            high = pattern[at + 1];
            at += 2;
        }
        found = found || (character >= low && character <= high);
    }
}

}  // namespace

std::string_view TrimEnd(std::string_view text) {
    return platform::WithoutEndBlanks(text);
}

int CompareText(std::string_view a, std::string_view b) {
    a = TrimEnd(a);
    b = TrimEnd(b);
    while (!a.empty() && !b.empty()) {
        const char32_t x = SmallLetter(TakeCharacter(a).value);
        const char32_t y = SmallLetter(TakeCharacter(b).value);
        if (x != y) return x < y ? -1 : 1;
    }
    return static_cast<int>(!a.empty()) - static_cast<int>(!b.empty());
}

std::string FoldedText(std::string_view text) {
    return platform::InSmallLetters(text);
}

CaseLetters CasedLetters() {
    constexpr char32_t kFirst = 0x80;
    constexpr char32_t kLast = 0xFFFF;
    CaseLetters letters;
    for (char32_t letter = kFirst; letter <= kLast; ++letter) {
        const char32_t small = SmallLetter(letter);
        if (small == letter) continue;
        AppendCharacter(letters.upper, letter);
        AppendCharacter(letters.lower, small);
    }
    return letters;
}

std::string_view AsciiCasedPart(std::string_view text) {
    std::string_view rest = text;
    while (!rest.empty()) {
        const platform::Utf8Character next = platform::FirstCharacter(rest);
        if (!next.valid || (platform::HasWideCase(next.value))) break;
        rest.remove_prefix(next.length);
    }
    return text.substr(0, text.size() - rest.size());
}

bool HasOnlyAsciiCase(std::string_view text) {
    return AsciiCasedPart(text).size() == text.size();
}

bool MatchesPattern(std::string_view text, std::string_view pattern) {
    const std::u32string letters = Folded(text);
    const std::u32string wanted = Folded(pattern);
    std::size_t letter = 0;
    std::size_t at = 0;
    std::size_t retryLetter = 0;
    std::size_t retryAt = std::u32string::npos;
    while (letter < letters.size()) {
        std::size_t next = at + 1;
        bool matches = false;
        if (at < wanted.size()) {
            if (wanted[at] == U'%') {
                retryLetter = letter;
                retryAt = at++;
                continue;
            }
            matches = wanted[at] == U'_' ||
                      (wanted[at] == U'[' ? MatchesClass(letters[letter], wanted, next)
                                          : wanted[at] == letters[letter]);
        }
        if (matches) {
            at = next;
            ++letter;
        } else if (retryAt != std::u32string::npos) {
            at = retryAt + 1;
            letter = ++retryLetter;
        } else {
            return false;
        }
    }
    while (at < wanted.size() && wanted[at] == U'%') ++at;
    return at == wanted.size();
}

std::size_t WideLength(std::string_view text) {
    std::size_t length = 0;
    while (!text.empty()) length += Width(TakeCharacter(text).value, true);
    return length;
}

std::string_view FirstPart(std::string_view text, std::size_t length, bool wide) {
    std::string_view rest = text;
    std::size_t used = 0;
    while (!rest.empty()) {
        std::string_view behind = rest;
        used += Width(TakeCharacter(behind).value, wide);
        if (used > length) break;
        rest = behind;
    }
    return text.substr(0, text.size() - rest.size());
}

}  // namespace kelvane::tsql
