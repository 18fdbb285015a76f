#include "platform/letter_case.h"

#include <algorithm>
#include <iterator>

#include "platform/ascii.h"
#include "platform/blanks.h"
#include "platform/utf8.h"

namespace kelvane::platform {

namespace {

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

}  // namespace

char32_t SmallLetter(char32_t letter) {
    if (letter < 0x80) return static_cast<unsigned char>(LowerAscii(static_cast<char>(letter)));
    for (const CaseRange& range : kCaseRanges) {
        if (Contains(range, letter)) return letter + range.delta;
    }
    return letter;
}

bool HasWideCase(char32_t letter) {
    return std::any_of(std::begin(kCaseRanges), std::end(kCaseRanges), [&](const CaseRange& range) {
        return Contains(range, letter) ||
               (letter >= range.delta && Contains(range, letter - range.delta));
    });
}

std::string InSmallLetters(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) AppendCharacter(result, SmallLetter(TakeCharacter(text).value));
    return result;
}

std::string ComparedText(std::string_view text) {
    return InSmallLetters(WithoutEndBlanks(text));
}

}  // namespace kelvane::platform
