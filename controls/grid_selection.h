// GridSelection: the cells beside the current one that the operator has selected, to copy them or
// to see their sum. Selecting leaves no row and opens no cell; the current cell stays where it is.
#pragma once

#include "controls/column_sum.h"

namespace kelvane::controls {

// The cells from one row and column to another; all four are in it.
struct GridRange {
    int top = 0;
    int left = 0;
    int bottom = -1;
    int right = -1;

    bool IsEmpty() const { return bottom < top || right < left; }
    bool HasRow(int row) const { return row >= top && row <= bottom; }
    bool Contains(int row, int col) const { return HasRow(row) && col >= left && col <= right; }
    bool IsOneCell() const { return top == bottom && left == right; }

    friend bool operator==(const GridRange&, const GridRange&) = default;
};

// A selection over rows: the corner where it began, the one that moves, and what its rows come to.
class GridSelection {
public:
    bool IsActive() const { return mActive; }
    void End() { *this = {}; }
    void Begin(int row, int col);
    void MoveCorner(int row, int col);

    int CornerRow() const { return mRow; }
    int CornerCol() const { return mCol; }
    GridRange Range() const;

    // How many rows are selected, hidden ones aside, and the sum of the column that the grid sums.
    int rows = 0;
    ColumnSum sum;

private:
    bool mActive = false;
    int mAnchorRow = 0;
    int mAnchorCol = 0;
    int mRow = 0;
    int mCol = 0;
};

}  // namespace kelvane::controls
