// Where a table's columns stand on the paper: scaled to its width, or in groups that stand on pages
// of their own.
#pragma once

#include <cstddef>
#include <vector>

#include "adapters/output/layout/sheet.h"
#include "platform/page.h"

namespace kelvane::output {

struct PlacedColumn {
    std::size_t cell = 0;  // its number among the grid's columns
    int left = 0;          // tenths of a millimetre from the page's left edge
    int width = 0;
    platform::PageAlignment alignment = platform::PageAlignment::Left;
};

using ColumnGroup = std::vector<PlacedColumn>;

// The shown columns, in as many groups as the paper needs side by side; one when they are fitted to
// its width. Empty when no column is shown.
std::vector<ColumnGroup> PlaceColumns(const Sheet& sheet);

}  // namespace kelvane::output
