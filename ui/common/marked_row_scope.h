// MarkedRowScope: a row of a grid stands out for as long as a question about it is asked.
#pragma once

#include "controls/grid.h"

namespace kelvane::ui {

class MarkedRowScope {
public:
    MarkedRowScope(controls::Grid& grid, int row) : mGrid(grid) { mGrid.MarkRow(row); }
    ~MarkedRowScope() { mGrid.MarkRow(0); }
    MarkedRowScope(const MarkedRowScope&) = delete;
    MarkedRowScope& operator=(const MarkedRowScope&) = delete;

private:
    controls::Grid& mGrid;
};

}  // namespace kelvane::ui
