// The blocks around a table: the title and the header items above it, the footer items under its
// last row, the page's number.
#pragma once

#include <vector>

#include "adapters/output/layout/sheet.h"
#include "adapters/output/layout/text_measurer.h"
#include "platform/page.h"

namespace kelvane::output {

// Texts of a block and where it ends, both from the block's own upper edge.
struct TextBlock {
    std::vector<platform::PageText> texts;
    int height = 0;
};

// Title and header items, from the page's upper margin; `height` is where the table may begin at
// the earliest.
TextBlock MakeHead(const Sheet& sheet, TextMeasurer& measurer);

// Footer items, from the lower end of the rows.
TextBlock MakeFoot(const Sheet& sheet, TextMeasurer& measurer);

// What the page's number takes of the page above the lower margin.
inline constexpr int kPageNumberHeight = 60;
platform::PageText MakePageNumber(const PageSettings& settings, int number, int count);

// The size of `letters`, or as much smaller as `text` needs to fit `width` tenths of a millimetre.
int FittingSize(std::string_view text, Letters letters, int width, TextMeasurer& measurer);

}  // namespace kelvane::output
