#include "platform/text_search.h"

#include <algorithm>

#include "platform/blanks.h"
#include "platform/pinyin.h"
#include "platform/search_key.h"
#include "platform/utf8.h"

namespace kelvane::platform {

namespace {

bool IsAscii(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

bool IsLetterOrDigit(char folded) {
    return (folded >= 'a' && folded <= 'z') || (folded >= '0' && folded <= '9');
}

}  // namespace

TextSearch::TextSearch(std::string_view typed) {
    const std::string folded = FoldText(typed);
    mNeedle = WithoutOuterBlanks(folded);
    mMayBeSpelled = std::all_of(mNeedle.begin(), mNeedle.end(), IsLetterOrDigit);
}

bool TextSearch::Finds(std::string_view cells) {
    if (mNeedle.empty()) return false;
    for (;;) {
        const std::size_t end = std::min(cells.find('\t'), cells.size());
        const std::string_view cell = cells.substr(0, end);
        mFolded.clear();
        AppendFolded(mFolded, cell);
        if (mFolded.find(mNeedle) != std::string::npos) return true;
        if (mMayBeSpelled && !std::all_of(mFolded.begin(), mFolded.end(), IsAscii) &&
            FindsSpelled(mFolded)) {
            return true;
        }
        if (end == cells.size()) return false;
        cells.remove_prefix(end + 1);
    }
}

// Each character of the folded text is read as a letter or digit, or as its initials; others are
// passed over.
bool TextSearch::FindsSpelled(std::string_view folded) {
    mReadings.clear();
    while (!folded.empty()) {
        if (IsAscii(folded.front())) {
            if (IsLetterOrDigit(folded.front())) mReadings.push_back(folded.substr(0, 1));
            folded.remove_prefix(1);
            continue;
        }
        const std::string_view initials = PinyinInitials(TakeCharacter(folded).value);
        if (!initials.empty()) mReadings.push_back(initials);
    }
    return std::search(mReadings.begin(), mReadings.end(), mNeedle.begin(), mNeedle.end(),
                       [](std::string_view reading, char letter) {
                           return reading.find(letter) != std::string_view::npos;
                       }) != mReadings.end();
}

}  // namespace kelvane::platform
