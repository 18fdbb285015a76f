#include "platform/search_key.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

#include "platform/full_width.h"
#include "platform/pinyin.h"
#include "platform/utf8.h"

namespace kelvane::platform {

namespace {

constexpr std::size_t kMaxSpellings = 16;

bool IsAscii(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

constexpr char FoldAscii(char character) {
    if (character >= 'A' && character <= 'Z') return static_cast<char>(character - 'A' + 'a');
    const auto byte = static_cast<unsigned char>(character);
    return byte < 0x20 || byte == 0x7F ? ' ' : character;
}

// What each byte is folded to; those of wide characters stay.
constexpr std::array<char, 256> kFolded = [] {
    std::array<char, 256> folded{};
    for (std::size_t byte = 0; byte < folded.size(); ++byte) {
        folded[byte] = FoldAscii(static_cast<char>(byte));
    }
    return folded;
}();

bool IsLetterOrDigit(char folded) {
    return (folded >= 'a' && folded <= 'z') || (folded >= '0' && folded <= '9');
}

// Every spelling once more for each further initial, as long as there are not too many.
void AppendInitials(std::vector<std::string>& spellings, std::string_view initials) {
    const std::size_t before = spellings.size();
    const std::size_t ways = before * initials.size() <= kMaxSpellings ? initials.size() : 1;
    for (std::size_t way = 1; way < ways; ++way) {
        for (std::size_t index = 0; index < before; ++index) {
            spellings.push_back(spellings[index] + initials[way]);
        }
    }
    for (std::size_t index = 0; index < before; ++index) spellings[index] += initials.front();
}

// The ways to spell a folded text by initials; none when it has no Chinese character.
std::vector<std::string> Spellings(std::string_view folded) {
    std::vector<std::string> spellings(1);
    bool chinese = false;
    while (!folded.empty()) {
        if (IsAscii(folded.front())) {
            if (IsLetterOrDigit(folded.front())) {
                for (std::string& spelling : spellings) spelling += folded.front();
            }
            folded.remove_prefix(1);
            continue;
        }
        const Utf8Character next = FirstCharacter(folded);
        const std::string_view initials = PinyinInitials(next.value);
        if (!initials.empty()) {
            AppendInitials(spellings, initials);
            chinese = true;
        }
        folded.remove_prefix(next.length);
    }
    if (!chinese) spellings.clear();
    return spellings;
}

}  // namespace

// A folded text is no longer than the text. Only two leading bytes begin characters that have a
// plain form; bytes of all others stay as they are.
void AppendFolded(std::string& out, std::string_view text) {
    constexpr char kLeadOfBlank = '\xE3';
    constexpr char kLeadOfForms = '\xEF';
    const std::size_t begin = out.size();
    out.resize(begin + text.size());
    char* to = out.data() + begin;
    for (std::size_t at = 0; at < text.size();) {
        const char lead = text[at];
        if (lead != kLeadOfBlank && lead != kLeadOfForms) {
            *to++ = kFolded[static_cast<unsigned char>(lead)];
            ++at;
            continue;
        }
        const Utf8Character next = FirstCharacter(text.substr(at));
        const char32_t plain = PlainForm(next.value);
        if (plain != next.value) {
            *to++ = kFolded[static_cast<unsigned char>(plain)];
        } else {
            to = std::copy_n(text.begin() + static_cast<std::ptrdiff_t>(at), next.length, to);
        }
        at += next.length;
    }
    out.resize(static_cast<std::size_t>(to - out.data()));
}

std::string FoldText(std::string_view text) {
    std::string folded;
    folded.reserve(text.size());
    AppendFolded(folded, text);
    return folded;
}

std::string SortKey(std::string_view cell) {
    const std::string folded = FoldText(cell);
    const std::vector<std::string> spellings = Spellings(folded);
    return (spellings.empty() ? folded : spellings.front()) + kKeyEnd + folded;
}

void AppendSearchKey(std::string& key, std::string_view cell) {
    const std::size_t begin = key.size();
    AppendFolded(key, cell);
    const auto wide =
        std::find_if_not(key.begin() + static_cast<std::ptrdiff_t>(begin), key.end(), IsAscii);
    if (wide != key.end()) {
        for (const std::string& spelling : Spellings(std::string(key, begin))) {
            key += kKeyEnd;
            key += spelling;
        }
    }
    key += kKeyEnd;
}

}  // namespace kelvane::platform
