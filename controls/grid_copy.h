// What a selection of cells is on the clipboard: text that spreadsheets take as a table.
#pragma once

#include <string>

#include "controls/grid.h"

namespace kelvane::controls {

// The shown cells of `range`, one line a row, joined by a tab, without a line break at the end.
// Numbers are plain, without grouping. A text with a tab, a line break or a quotation mark stands
// in quotation marks, those in it doubled; that of a single cell only where it has to.
// `withTitles`: the columns' titles come first.
std::string CopiedText(const Grid& grid, const GridRange& range, bool withTitles);

}  // namespace kelvane::controls
