// Which part of the grid is shown, and where its cells lie.
#include <algorithm>

#include "controls/grid.h"

namespace kelvane::controls {

void Grid::SetTopRow(int row) {
    const int top = std::clamp(row, mFixedRows, std::max(mFixedRows, Rows() - 1));
    if (top == mTopRow) return;
    mTopRow = top;
    Touch();
    if (ViewChange) Raise("ViewChange", ViewChange);
}

void Grid::SetLeftCol(int col) {
    const int left = std::clamp(col, mFixedCols, std::max(mFixedCols, Cols() - 1));
    if (left == mLeftCol) return;
    mLeftCol = left;
    Touch();
    if (ViewChange) Raise("ViewChange", ViewChange);
}

int Grid::VisibleRows() const {
    int room = ViewHeight();
    for (int row = 0; row < mFixedRows && row < Rows(); ++row) room -= RowHeight(row);
    int count = 0;
    for (int row = mTopRow; row < Rows(); ++row) {
        room -= RowHeight(row);
        if (room < 0) break;
        ++count;
    }
    return count;
}

bool Grid::IsRowShown(int row) const {
    if (row < mFixedRows) return row >= 0 && row < Rows();
    return row >= mTopRow && row < mTopRow + std::max(1, VisibleRows()) && row < Rows();
}

void Grid::SetWidth(int twips) {
    const int before = Width();
    Control::SetWidth(twips);
    if (Width() != before && ViewChange) Raise("ViewChange", ViewChange);
}

void Grid::SetHeight(int twips) {
    const int before = Height();
    Control::SetHeight(twips);
    if (Height() != before && ViewChange) Raise("ViewChange", ViewChange);
}

int Grid::CellLeft(int col) const {
    int left = 0;
    for (int passed = 0; passed < col; ++passed) {
        if (passed < mFixedCols || passed >= mLeftCol) left += ColumnWidth(passed);
    }
    return left;
}

int Grid::CellTop(int row) const {
    int top = 0;
    for (int passed = 0; passed < mFixedRows && passed < row; ++passed) top += RowHeight(passed);
    if (row < mFixedRows) return top;
    for (int passed = mTopRow; passed < row; ++passed) top += RowHeight(passed);
    for (int passed = row; passed < mTopRow; ++passed) top -= RowHeight(passed);
    return top;
}

void Grid::ResizeColumn(int col, int twips) {
    if (mEditing && FinishEdit() == GridAnswer::Refuse) return;
    SetColumnWidth(col, twips);
    if (ViewChange) Raise("ViewChange", ViewChange);
}

void Grid::ShowCurrent() {
    if (mRow >= mFixedRows) {
        if (mRow < mTopRow) {
            SetTopRow(mRow);
        } else if (ViewHeight() > 0 && !IsRowShown(mRow)) {
            int room = ViewHeight();
            for (int row = 0; row < mFixedRows; ++row) room -= RowHeight(row);
            int top = mRow;
            room -= RowHeight(top);
            while (top > mFixedRows && room - RowHeight(top - 1) >= 0) room -= RowHeight(--top);
            SetTopRow(top);
        }
    }
    if (mCol >= mFixedCols) {
        if (mCol < mLeftCol) {
            SetLeftCol(mCol);
        } else if (ViewWidth() > 0) {
            int left = mLeftCol;
            int right = CellLeft(mCol) + ColumnWidth(mCol);
            while (left < mCol && right > ViewWidth()) right -= ColumnWidth(left++);
            SetLeftCol(left);
        }
    }
}

}  // namespace kelvane::controls
