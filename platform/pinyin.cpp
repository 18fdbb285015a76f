#include "platform/pinyin.h"

#include <algorithm>
#include <iterator>

namespace kelvane::platform {

namespace {

struct SeveralInitials {
    char32_t character;
    std::string_view initials;
};

#include "platform/pinyin_initials.inc"

// The letter of `character` in a block; null when it lies outside.
const char* LetterIn(std::string_view block, char32_t first, char32_t character) {
    if (character < first || character - first >= block.size()) return nullptr;
    return &block[character - first];
}

std::string_view Listed(char32_t character) {
    const auto* found = std::lower_bound(
        std::begin(kSeveralInitials), std::end(kSeveralInitials), character,
        [](const SeveralInitials& entry, char32_t wanted) { return entry.character < wanted; });
    if (found == std::end(kSeveralInitials) || found->character != character) return {};
    return found->initials;
}

}  // namespace

std::string_view PinyinInitials(char32_t character) {
    const char* letter = LetterIn(kUnified, kUnifiedFirst, character);
    if (letter == nullptr) letter = LetterIn(kExtensionA, kExtensionAFirst, character);
    if (letter == nullptr) return Listed(character);
    if (*letter >= 'a') return {letter, 1};
    return *letter == '.' ? std::string_view() : Listed(character);
}

}  // namespace kelvane::platform
