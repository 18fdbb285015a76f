// TextSearch: whether texts contain what an operator typed, without regard to letter case and
// width, or spell it by the pinyin initials of their Chinese characters. It keeps no keys: of a
// long list it is asked once a row.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kelvane::platform {

class TextSearch {
public:
    // Blanks at both ends of `typed` do not count.
    explicit TextSearch(std::string_view typed);

    // Nothing was typed; it is found nowhere.
    bool IsEmpty() const { return mNeedle.empty(); }
    // True when one of the texts that a tab joins in `cells` contains what was typed.
    bool Finds(std::string_view cells);

private:
    bool FindsSpelled(std::string_view cell);

    std::string mNeedle;
    bool mMayBeSpelled = false;
    // The text that was looked at last: folded, and what each of its characters is read as.
    std::string mFolded;
    std::vector<std::string_view> mReadings;
};

}  // namespace kelvane::platform
