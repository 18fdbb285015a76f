#include "adapters/tsql/language/text_rules.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string>

#include "platform/ascii.h"
#include "platform/utf8.h"

namespace kelvane::tsql {

namespace {

using platform::AppendCharacter;
using platform::TakeCharacter;

// Upper-case letters from `first` to `last` in steps of `step`; their lower case is `delta`
// further.
struct CaseRange {
    char32_t first;
    char32_t last;
    char32_t step;
    char32_t delta;
};

constexpr CaseRange kCaseRanges[] = {
    {0x00C0, 0x00D6, 1, 32}, {0x00D8, 0x00DE, 1, 32}, {0x0100, 0x012E, 2, 1},
    {0x0132, 0x0136, 2, 1},  {0x0139, 0x0147, 2, 1},  {0x014A, 0x0176, 2, 1},
    {0x0179, 0x017D, 2, 1},  {0x01CD, 0x01DB, 2, 1},  {0x0386, 0x0386, 1, 38},
    {0x0388, 0x038A, 1, 37}, {0x038C, 0x038C, 1, 64}, {0x038E, 0x038F, 1, 63},
    {0x0391, 0x03A1, 1, 32}, {0x03A3, 0x03AB, 1, 32}, {0x0400, 0x040F, 1, 80},
    {0x0410, 0x042F, 1, 32}, {0x2160, 0x216F, 1, 16}, {0xFF21, 0xFF3A, 1, 32},
};

bool Contains(const CaseRange& range, char32_t letter) {
    return letter >= range.first && letter <= range.last &&
           (letter - range.first) % range.step == 0;
}

char32_t Fold(char32_t letter) {
    if (letter < 0x80)
        return static_cast<unsigned char>(platform::LowerAscii(static_cast<char>(letter)));
    for (const CaseRange& range : kCaseRanges) {
        if (Contains(range, letter)) return letter + range.delta;
    }
    return letter;
}

bool HasCase(char32_t letter) {
    return std::any_of(std::begin(kCaseRanges), std::end(kCaseRanges), [&](const CaseRange& range) {
        return Contains(range, letter) ||
               (letter >= range.delta && Contains(range, letter - range.delta));
    });
}

std::u32string Folded(std::string_view text) {
    std::u32string result;
    result.reserve(text.size());
    while (!text.empty()) result += Fold(TakeCharacter(text).value);
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
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return text;
}

int CompareText(std::string_view a, std::string_view b) {
    a = TrimEnd(a);
    b = TrimEnd(b);
    while (!a.empty() && !b.empty()) {
        const char32_t x = Fold(TakeCharacter(a).value);
        const char32_t y = Fold(TakeCharacter(b).value);
        if (x != y) return x < y ? -1 : 1;
    }
    return static_cast<int>(!a.empty()) - static_cast<int>(!b.empty());
}

std::string FoldedText(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) AppendCharacter(result, Fold(TakeCharacter(text).value));
    return result;
}

CaseLetters CasedLetters() {
    CaseLetters letters;
    for (const CaseRange& range : kCaseRanges) {
        for (char32_t letter = range.first; letter <= range.last; letter += range.step) {
            AppendCharacter(letters.upper, letter);
            AppendCharacter(letters.lower, Fold(letter));
        }
    }
    return letters;
}

std::string_view AsciiCasedPart(std::string_view text) {
    std::string_view rest = text;
    while (!rest.empty()) {
        const platform::Utf8Character next = platform::FirstCharacter(rest);
        if (!next.valid || (next.value >= 0x80 && HasCase(next.value))) break;
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
