#include "ui/common/row_history.h"

#include <algorithm>
#include <utility>

namespace kelvane::ui {

void RowHistory::KeepOnly(int row) {
    if (!IsAt(row)) Forget();
}

void RowHistory::BeginEdit(int row, RowState now) {
    KeepOnly(row);
    mRow = row;
    mOpened = std::move(now);
}

void RowHistory::EndEdit(int col, const RowState& now) {
    auto before = std::exchange(mOpened, std::nullopt);
    if (!before || *before == now) return;
    mSteps.push_back({*std::move(before), col});
    mWayOut = WayOut::Checked;
}

RowHistory::Step RowHistory::TakeLastStep() {
    Step last = std::move(mSteps.back());
    mSteps.pop_back();
    return last;
}

RowState RowHistory::TakeAllSteps() {
    RowState first = std::move(mSteps.front().before);
    mSteps.clear();
    return first;
}

void RowHistory::Offer(int row, WayOut way) {
    KeepOnly(row);
    mRow = row;
    mWayOut = way;
}

void RowHistory::SaveInDoubt(int row) {
    Forget();
    mRow = row;
    mInDoubt = true;
}

void PutCellsBack(controls::Grid& grid, int row, std::string_view cells) {
    for (int col = 0; col < grid.Cols(); ++col) {
        const std::string_view text = cells.substr(0, cells.find('\t'));
        cells.remove_prefix(std::min(cells.size(), text.size() + 1));
        if (grid.Text(row, col) != text) grid.SetText(row, col, text);
    }
    grid.ForgetRefused();
}

}  // namespace kelvane::ui
