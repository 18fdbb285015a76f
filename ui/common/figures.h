// What the lower line says of a list of lines with amounts.
#pragma once

#include <string>

#include "controls/grid.h"

namespace kelvane::ui {

// The current row among all, and the sum of the column that the grid sums: "第 3 行，共 25 行 合计
// 1,234.50"; with several rows selected how many, and what they come to. Says how many cells could
// not be added because they hold no amount, and of a filtered list how many rows it shows of how
// many.
std::string FiguresOf(const controls::Grid& grid);

}  // namespace kelvane::ui
