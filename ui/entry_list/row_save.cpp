// Writing a row to the account, and deleting one.
#include <cstdint>

#include "data/login_context.h"
#include "data/messages.h"
#include "ui/common/entry_number.h"
#include "ui/common/findings.h"
#include "ui/common/marked_row_scope.h"
#include "ui/entry_list/entry_list.h"

namespace kelvane::ui {

using data::gConn;
using platform::StatementText;

bool frmPeriodItem::SaveRow(int row, StatementText& detailSql) {
    SavedRow saved{.written = {},
                   .identity = GridPeriodItem.RowData(row),
                   .wasInDoubt = mHistory.IsInDoubt(HistoryKey(row)),
                   .wroteLines = !detailSql.IsEmpty(),
                   .deletedLines = mHistory.HasDeletedLines()};
    try {
        try {
            if (!WriteRow(row, detailSql, saved)) return false;
        } catch (const platform::CommitInDoubt&) {
            HoldReplaced(saved);
            mHistory.SaveInDoubt(HistoryKey(row));
            throw;
        }
        detailSql = {};
        mHistory.Forget();
        GridPeriodItem.SetRowTouched(false);
        mFailureNotice.Succeeded(Work::Save);
        TellOfOthers(row, saved);
        return true;
    } catch (...) {
        mFailureNotice.FailedWrite(
            "SaveRow",
            {.busy = "数据库正被他人占用，当前行没有保存，请稍后再离开该行重试。",
             .inDoubt =
                 "保存当前行时没有收到数据库的答复，不能确定是否已经保存，请重新打开核对。"});
    }
    return false;
}

bool frmPeriodItem::WriteRow(int row, const StatementText& detailSql, SavedRow& saved) {
    entries::Entry entry = entries::EntryOf(TextsOf(row));
    if (entry.identity != 0) {
        const auto gone = mStore.Update(entry, detailSql, saved.written);
        if (!gone) return true;
        ShowFinding(*gone);
        RefuseRow(row, RefusalText(*gone));
        return false;
    }
    entry.identity = NextSettingNumber(entries::kEntryCounter, *gConn, entries::kIdentities);
    if (entry.identity == kNoNumber) return false;
    try {
        mStore.Insert(entry, detailSql, saved.written);
    } catch (const platform::CommitInDoubt&) {
        TakeIdentity(row, entry.identity);
        throw;
    }
    TakeIdentity(row, entry.identity);
    return true;
}

void frmPeriodItem::TakeIdentity(int row, std::int32_t identity) {
    GridPeriodItem.SetRowData(row, identity);
    mElementDetails.GiveNewRow(identity);
}

bool frmPeriodItem::CheckRowDeletable(int row) {
    const auto settled = mRules.CheckDeletion(TextsOf(row));
    if (settled) ShowFinding(*settled);
    return !settled;
}

bool frmPeriodItem::AskDelete(int row) {
    const MarkedRowScope marked(GridPeriodItem, row);
    return data::AskQuestion("是否删除当前行？", "删除确认", platform::MessageIcon::None,
                             platform::MessageAnswer::No);
}

void frmPeriodItem::DeleteRow() {
    try {
        const int row = GridPeriodItem.Row();
        SelectRow(row);
        if (!AskDelete(row)) return;

        mStore.Delete(GridPeriodItem.RowData(row));

        // What was kept for the deleted row must not be saved with another one.
        mWaiting.Forget();
        mHistory.Forget();
        mSaveNotes.Forget(GridPeriodItem.RowData(row));
        GridPeriodItem.RemoveItem(row);
        mFailureNotice.Remind(mSaveNotes.Text());
        mFailureNotice.Succeeded(Work::Save);
    } catch (...) {
        mFailureNotice.FailedWrite(
            "DeleteRow",
            {.busy = "数据库正被他人占用，当前行没有删除，请稍后重试。",
             .inDoubt =
                 "删除当前行时没有收到数据库的答复，不能确定是否已经删除，请重新打开核对。"});
    }
}

}  // namespace kelvane::ui
