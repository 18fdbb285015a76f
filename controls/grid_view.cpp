// Which part of the grid is shown, and where its cells lie.
#include <algorithm>

#include "controls/grid.h"
#include "controls/text_width.h"

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
    const int before = IsColumnResized(col) ? ColumnAt(col).originalWidth : ColumnWidth(col);
    SetColumnWidth(col, twips);
    ColumnAt(col).originalWidth = before;
    if (ViewChange) Raise("ViewChange", ViewChange);
}

// What the cell needs when it is the current one, which shows its button.
int Grid::CellWidth(int row, int col) const {
    constexpr int kButton = 300;
    const std::string text = Text(row, col);
    const int width = MeasureText ? MeasureText(text) : EstimateTextWidth(text);
    const bool hasButton = CanEdit(row, col) && (HasReference(col) || HasList(col));
    return hasButton ? width + kButton : width;
}

// Looks at the titles and the rows in sight, however many there are.
void Grid::FitColumn(int col) {
    constexpr int kNarrowest = 300;
    int wanted = kNarrowest;
    const int end = std::min(Rows(), mTopRow + std::max(1, VisibleRows()) + 1);
    for (int row = 0; row < end; ++row) {
        if (row == mFixedRows) row = std::max(row, mTopRow);
        if (row < end && RowHeight(row) > 0) wanted = std::max(wanted, CellWidth(row, col));
    }
    ResizeColumn(col, ViewWidth() > kNarrowest ? std::min(wanted, ViewWidth()) : wanted);
}

void Grid::RestoreColumnWidths() {
    if (mEditing && FinishEdit() == GridAnswer::Refuse) return;
    for (int col = 0; col < Cols(); ++col) {
        if (IsColumnResized(col)) SetColumnWidth(col, ColumnAt(col).originalWidth);
    }
    if (ViewChange) Raise("ViewChange", ViewChange);
}

void Grid::SetZoom(int percent) {
    const int zoom = std::clamp(percent, kLeastZoom, kGreatestZoom);
    if (zoom == mZoom) return;
    mZoom = zoom;
    Touch();
    ShowCurrent();
    if (ViewChange) Raise("ViewChange", ViewChange);
}

int Grid::RowAbove() const {
    for (int row = mRow - 1; row >= mFixedRows; --row) {
        if (RowHeight(row) > 0) return row;
    }
    return 0;
}

void Grid::ShowCell(int row, int col) {
    if (row >= mFixedRows) {
        if (row < mTopRow) {
            SetTopRow(row);
        } else if (ViewHeight() > 0 && !IsRowShown(row)) {
            int room = ViewHeight();
            for (int fixed = 0; fixed < mFixedRows; ++fixed) room -= RowHeight(fixed);
            int top = row;
            room -= RowHeight(top);
            while (top > mFixedRows && room - RowHeight(top - 1) >= 0) room -= RowHeight(--top);
            SetTopRow(top);
        }
    }
    if (col >= mFixedCols) {
        if (col < mLeftCol) {
            SetLeftCol(col);
        } else if (ViewWidth() > 0) {
            int left = mLeftCol;
            int right = CellLeft(col) + ColumnWidth(col);
            while (left < col && right > ViewWidth()) right -= ColumnWidth(left++);
            SetLeftCol(left);
        }
    }
}

}  // namespace kelvane::controls
