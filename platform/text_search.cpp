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
    constexpr std::size_t kMostSpelled = 64;  // bits of a state
    const std::string folded = FoldText(typed);
    mNeedle = WithoutOuterBlanks(folded);
    if (mNeedle.empty() || mNeedle.size() > kMostSpelled ||
        !std::all_of(mNeedle.begin(), mNeedle.end(), IsLetterOrDigit)) {
        return;
    }
    mLast = std::uint64_t{1} << (mNeedle.size() - 1);
    for (std::size_t at = 0; at < mNeedle.size(); ++at) {
        mPlaces[static_cast<unsigned char>(mNeedle[at])] |= std::uint64_t{1} << at;
    }
}

// No needle contains the tab between the texts.
bool TextSearch::Finds(std::string_view cells) {
    if (mNeedle.empty()) return false;
    mFolded.clear();
    for (std::size_t end = cells.find('\t'); end != std::string_view::npos;
         end = cells.find('\t')) {
        AppendFolded(mFolded, cells.substr(0, end));
        mFolded += '\t';
        cells.remove_prefix(end + 1);
    }
    AppendFolded(mFolded, cells);
    if (mFolded.find(mNeedle) != std::string::npos) return true;
    return mLast != 0 && FindsSpelled(mFolded);
}

// In a text with a Chinese character each character is read as a letter or digit, or as its
// initials; others are passed over. Each bit of the state says that what was read last is the
// needle up to there.
bool TextSearch::FindsSpelled(std::string_view folded) const {
    std::uint64_t state = 0;
    bool chinese = false;
    bool found = false;
    const auto read = [&](std::uint64_t places) {
        state = (state << 1U | 1U) & places;
        found = found || (state & mLast) != 0;
    };
    while (!folded.empty()) {
        const char lead = folded.front();
        if (!IsAscii(lead)) {
            const std::string_view initials = PinyinInitials(TakeCharacter(folded).value);
            if (initials.empty()) continue;
            std::uint64_t places = 0;
            for (const char initial : initials) places |= PlacesOf(initial);
            read(places);
            chinese = true;
        } else {
            if (IsLetterOrDigit(lead)) read(PlacesOf(lead));
            if (lead == '\t') {
                if (found && chinese) return true;
                state = 0;
                chinese = found = false;
            }
            folded.remove_prefix(1);
        }
    }
    return found && chinese;
}

}  // namespace kelvane::platform
