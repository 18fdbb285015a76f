// TextMeasurer: how wide a text is in the pages' fonts.
#pragma once

#include <string_view>

namespace kelvane::output {

// Letters of one kind; the size is in tenths of a point.
struct Letters {
    int size = 90;
    bool bold = false;
};

class TextMeasurer {
public:
    virtual ~TextMeasurer() = default;
    // Width of one line of UTF-8 text, in thousandths of a millimetre.
    virtual int Width(std::string_view text, const Letters& letters) = 0;
};

// Height of a line of text, in tenths of a millimetre, whatever the font.
constexpr int LineHeight(int size) {
    constexpr long kTenthsOfPoint = 72'0;  // in an inch
    constexpr long kTenthsOfMillimetre = 254;
    constexpr long kLeadingPercent = 135;
    return static_cast<int>(size * kTenthsOfMillimetre * kLeadingPercent / (kTenthsOfPoint * 100));
}

}  // namespace kelvane::output
