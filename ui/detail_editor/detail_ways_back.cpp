// The ways back from a line's changes: one by one, all at once to what the line was when it was
// loaded or last left, and out of a line that breaks a rule.
#include "data/messages.h"
#include "ui/common/marked_row_scope.h"
#include "ui/common/ways_back.h"
#include "ui/detail_editor/detail_editor.h"

namespace kelvane::ui {

using platform::MessageAnswer;
using WayOut = RowHistory::WayOut;

void frmQCEdit::OfferWaysBack() {
    AddWaysBack(*this, {.canUndo = [this] { return HasLineChanges(); },
                        .undo = [this] { UndoChange(); },
                        .canGoBack = [this] { return HasLineChanges() && !IsNewLine(Grid1.Row()); },
                        .goBack = [this] { Grid1_AbandonRow(Grid1.Row()); }});
}

bool frmQCEdit::HasLineChanges() const {
    return !Grid1.IsEditing() && Grid1.Row() >= Grid1.FixedRows() && mHistory.HasSteps(Grid1.Row());
}

// A line that nothing was in before it was changed.
bool frmQCEdit::IsNewLine(int row) const {
    const RowState* before = mHistory.BeforeSteps(row);
    const std::string cells = before != nullptr ? before->cells : Grid1.RowText(row);
    return cells.find_first_not_of('\t') == std::string::npos;
}

void frmQCEdit::UndoChange() {
    const int row = Grid1.Row();
    const auto [before, col] = mHistory.TakeLastStep();
    PutCellsBack(Grid1, row, before.cells);
    Grid1.SetRowTouched(mHistory.HasSteps(row));
    Grid1.SetCol(col);
    Grid1.ShowCurrent();
}

void frmQCEdit::Grid1_AbandonRow(int row) {
    if (Grid1.ReadOnly()) return;
    if (IsNewLine(row)) return GiveUpLine(row);
    Grid1.SetRowTouched(false);
    if (!mHistory.HasSteps(row)) {
        Grid1.ForgetRefused();
        return mHistory.Offer(row, WayOut::Free);
    }
    PutCellsBack(Grid1, row, mHistory.TakeAllSteps().cells);
    mHistory.Offer(row, WayOut::CheckedAfterReturn);
}

// Unlike the command to delete a line the key may have been pressed once too often: No is
// preselected.
void frmQCEdit::GiveUpLine(int row) {
    // Where there was no line at all, none may be left again.
    const bool noneBefore = mSnapshot.size() == 1;
    if (Grid1.Rows() == 2 && !noneBefore) return DeleteDetailRow();
    const MarkedRowScope marked(Grid1, row);
    AskAndRemove(row, MessageAnswer::No);
}

std::string frmQCEdit::Hint() const {
    static constexpr RowWords kWords{.leaveFreely = "不检查离开此明细", .newRow = "此明细"};
    const int row = Grid1.Row();
    if (row < Grid1.FixedRows() || Grid1.ReadOnly()) return {};
    const RowPlace place{.row = row, .key = row, .isNew = IsNewLine(row)};
    return WayOutHint(Grid1, mHistory, place, mRefusal, kWords);
}

}  // namespace kelvane::ui
