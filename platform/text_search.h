// TextSearch: whether texts contain what an operator typed, without regard to letter case and
// width, or spell it by the pinyin initials of their Chinese characters. It keeps no keys: of a
// long list it is asked once a row.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

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
    bool FindsSpelled(std::string_view folded) const;
    std::uint64_t PlacesOf(char letter) const {
        return mPlaces[static_cast<unsigned char>(letter)];
    }

    std::string mNeedle;
    // Where in the needle each letter stands, a bit a place, and the bit of its last one; 0 when no
    // initials can spell it.
    std::array<std::uint64_t, 256> mPlaces{};
    std::uint64_t mLast = 0;
    // The texts that were looked at last.
    std::string mFolded;
};

}  // namespace kelvane::platform
