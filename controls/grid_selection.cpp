// Selecting cells of a grid.
#include "controls/grid_selection.h"

#include <algorithm>
#include <cstdlib>

#include "controls/grid.h"

namespace kelvane::controls {

using platform::Key;

void GridSelection::Begin(int row, int col) {
    End();
    mActive = true;
    mAnchorRow = mRow = row;
    mAnchorCol = mCol = col;
}

void GridSelection::MoveCorner(int row, int col) {
    mRow = row;
    mCol = col;
}

GridRange GridSelection::Range() const {
    if (!mActive) return {};
    return {std::min(mAnchorRow, mRow), std::min(mAnchorCol, mCol), std::max(mAnchorRow, mRow),
            std::max(mAnchorCol, mCol)};
}

GridRange Grid::Selected() const {
    if (mSelection.IsActive()) return mSelection.Range();
    if (mRow < mFixedRows || mRow >= Rows()) return {};
    return {mRow, std::min(mCol, mSelectionEnd), mRow, std::max(mCol, mSelectionEnd)};
}

bool Grid::CanSelect() const {
    return !mEditing && mRow >= mFixedRows && mRow < Rows();
}

void Grid::SelectTo(int row, int col) {
    if (!CanSelect()) return;
    if (!mSelection.IsActive()) BeginSelection(mRow, mCol);
    MoveCorner(row, col);
    // All was not selected from the current row on, which is never left out.
    if (mSelection.Range().HasRow(mRow)) return;
    BeginSelection(mRow, mCol);
    MoveCorner(row, col);
}

void Grid::SelectRowsTo(int row) {
    if (!CanSelect()) return;
    EndSelection();
    BeginSelection(mRow, mFixedCols);
    MoveCorner(row, Cols() - 1);
}

void Grid::SelectAll() {
    if (!CanSelect()) return;
    EndSelection();
    BeginSelection(mFixedRows, mFixedCols);
    MoveCorner(Rows() - 1, Cols() - 1);
}

void Grid::EndSelection() {
    if (!mSelection.IsActive()) return;
    mSelection.End();
    mSelectionEnd = mCol;
    Touch();
}

void Grid::BeginSelection(int row, int col) {
    mSelection.Begin(row, col);
    CountSelected(row, row, true);
}

void Grid::MoveCorner(int row, int col) {
    row = std::clamp(row, mFixedRows, Rows() - 1);
    col = std::clamp(col, mFixedCols, Cols() - 1);
    const GridRange before = mSelection.Range();
    mSelection.MoveCorner(row, col);
    mSelectionEnd = col;
    const GridRange after = mSelection.Range();
    if (after == before) return;
    // Whichever looks at the fewest amounts: those that come and go, all that are selected, or all
    // that are not.
    const int changed = std::abs(after.top - before.top) + std::abs(after.bottom - before.bottom);
    const int selected = after.bottom - after.top + 1;
    const int others = Rows() - mFixedRows - selected;
    if (others < std::min(changed, selected) && mSum.Total()) {
        CountAllBut(after);
    } else if (selected < changed) {
        mSelection.rows = 0;
        mSelection.sum = {};
        CountSelected(after.top, after.bottom, true);
    } else {
        CountSelected(after.top, before.top - 1, true);
        CountSelected(before.top, after.top - 1, false);
        CountSelected(before.bottom + 1, after.bottom, true);
        CountSelected(after.bottom + 1, before.bottom, false);
    }
    Touch();
}

void Grid::CountSelected(int from, int to, bool come) {
    for (int row = from; row <= to; ++row) {
        if (RowHeight(row) == 0) continue;
        mSelection.rows += come ? 1 : -1;
        if (IsSummed(row, mSummedColumn)) CountCell(mSelection.sum, row, come);
    }
}

void Grid::CountAllBut(const GridRange& range) {
    mSelection.rows = 0;
    mSelection.sum = mSum;
    for (int row = mFixedRows; row < Rows(); ++row) {
        if (range.HasRow(row) && RowHeight(row) > 0) {
            ++mSelection.rows;
        } else if (IsSummed(row, mSummedColumn)) {
            CountCell(mSelection.sum, row, false);
        }
    }
}

bool Grid::ExtendSelection(Key key, int shift) {
    if (!CanSelect()) return false;
    const bool ctrl = (shift & platform::kCtrl) != 0;
    const int page = std::max(1, VisibleRows());
    int row = mSelection.IsActive() ? mSelection.CornerRow() : mRow;
    int col = mSelection.IsActive() ? mSelection.CornerCol() : mSelectionEnd;
    switch (key) {
        case Key::Up:
            row = RowBeside(row, -1);
            break;
        case Key::Down:
            row = RowBeside(row, 1);
            break;
        case Key::PageUp:
            row = RowBeside(row, -page);
            break;
        case Key::PageDown:
            row = RowBeside(row, page);
            break;
        case Key::Left:
            col = ColBeside(col, -1);
            break;
        case Key::Right:
            col = ColBeside(col, 1);
            break;
        case Key::Home:
            if (ctrl) row = mFixedRows;
            col = mFixedCols;
            break;
        case Key::End:
            if (ctrl) row = Rows() - 1;
            col = Cols() - 1;
            break;
        default:
            return false;
    }
    SelectTo(row, col);
    ShowCell(row, col);
    return true;
}

}  // namespace kelvane::controls
