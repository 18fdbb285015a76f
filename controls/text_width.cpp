#include "controls/text_width.h"

#include "platform/utf8.h"

namespace kelvane::controls {

int EstimateTextWidth(std::string_view text) {
    constexpr int kLetter = 115;
    constexpr int kIdeograph = 210;
    constexpr int kPadding = 240;
    constexpr char32_t kFirstWide = 0x1100;
    int width = kPadding;
    while (!text.empty()) {
        width += platform::TakeCharacter(text).value < kFirstWide ? kLetter : kIdeograph;
    }
    return width;
}

}  // namespace kelvane::controls
