// The ways back from a row's changes: one by one, all at once to what is stored, and out of a row
// that breaks a rule which its operator cannot do anything about.
#include "ui/common/ways_back.h"

#include <string_view>

#include "ui/entry_list/entry_list.h"

namespace kelvane::ui {

using WayOut = RowHistory::WayOut;

namespace {

constexpr RowWords kWords{.leaveFreely = "不检查、不保存离开此行", .newRow = "新行"};
constexpr std::string_view kLinesMissing = "更换要素时从数据库中删除的明细不能恢复。";

}  // namespace

RowState frmPeriodItem::StateOf(int row) const {
    return {.cells = GridPeriodItem.RowText(row),
            .waiting = mWaiting,
            .detail = ElementDetailFlag(row)};
}

void frmPeriodItem::PutBack(int row, const RowState& state) {
    PutCellsBack(GridPeriodItem, row, state.cells);
    mWaiting = state.waiting;
    if (ElementDetailFlag(row) != state.detail) {
        mElementDetails.Replace(GridPeriodItem.RowData(row), state.detail);
    }
    // What could not be checked or saved is not there any more.
    mFailureNotice.GivenUp(Work::Check);
    mFailureNotice.GivenUp(Work::Save);
}

void frmPeriodItem::OfferWaysBack() {
    AddWaysBack(*this, {.canUndo = [this] { return HasChanges() || CanLookAtOthersValues(); },
                        .undo = [this] { UndoChange(); },
                        .canGoBack =
                            [this] {
                                const int row = GridPeriodItem.Row();
                                return HasChanges() && GridPeriodItem.RowData(row) != 0;
                            },
                        .goBack = [this] { GoBackToStored(GridPeriodItem.Row()); }});
}

bool frmPeriodItem::IsInList() const {
    return ActiveControl() == &GridPeriodItem && !GridPeriodItem.IsEditing();
}

bool frmPeriodItem::HasChanges() const {
    const int row = GridPeriodItem.Row();
    return IsInList() && row >= GridPeriodItem.FixedRows() && mHistory.HasSteps(HistoryKey(row));
}

void frmPeriodItem::UndoChange() {
    const int row = GridPeriodItem.Row();
    const int key = HistoryKey(row);
    if (!mHistory.HasSteps(key)) return LookAtOthersValues();
    const auto [before, col] = mHistory.TakeLastStep();
    PutBack(row, before);
    GridPeriodItem.SetRowTouched(mHistory.HasSteps(key) || mHistory.IsInDoubt(key));
    GridPeriodItem.SetCol(col);
    GridPeriodItem.ShowCurrent();
    if (mHistory.LinesAreMissing(before)) mFailureNotice.FailedSave(std::string(kLinesMissing));
}

void frmPeriodItem::GoBackToStored(int row) {
    const int key = HistoryKey(row);
    if (GridPeriodItem.ReadOnly() || !GridPeriodItem.RowCanBeEdited(row)) return;
    if (mHistory.IsInDoubt(key)) {
        mFailureNotice.FailedSave(
            "上次保存此行时没有收到数据库的答复，不知道保存的是什么，请离开此行再保存一次。");
        return;
    }
    GridPeriodItem.SetRowTouched(false);
    if (!mHistory.HasSteps(key)) {
        GridPeriodItem.ForgetRefused();
        mFailureNotice.GivenUp(Work::Save);
        mHistory.Offer(key, WayOut::Free);
        return;
    }
    const RowState stored = mHistory.TakeAllSteps();
    PutBack(row, stored);
    mHistory.Offer(key, WayOut::CheckedAfterReturn);
    if (mHistory.LinesAreMissing(stored)) {
        mFailureNotice.FailedSave(BackHint(kWords, kLinesMissing));
    }
}

std::string frmPeriodItem::RowHint(int row) const {
    const RowPlace place{
        .row = row, .key = HistoryKey(row), .isNew = GridPeriodItem.RowData(row) == 0};
    return WayOutHint(GridPeriodItem, mHistory, place, mRefusal, kWords);
}

}  // namespace kelvane::ui
