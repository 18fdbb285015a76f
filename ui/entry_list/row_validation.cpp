// Checks of one cell before an entry is kept: the rules are asked, what they find is shown, and
// what follows from an accepted cell is done to its row.
#include "data/login_context.h"
#include "data/text_conversion.h"
#include "ui/common/findings.h"
#include "ui/entry_list/entry_list.h"

namespace kelvane::ui {

using entries::EntryTexts;
using entries::Finding;

bool frmPeriodItem::Accepts(const std::optional<Finding>& finding) {
    if (!finding) return true;
    ShowFinding(*finding);
    mRefusal = RefusalText(*finding);
    GridPeriodItem.SetFocus();
    return false;
}

EntryTexts frmPeriodItem::TextsOf(int row) const {
    EntryTexts texts{.identity = GridPeriodItem.RowData(row), .cells = {}};
    for (int col = kDateColumn; col <= kAmountColumn; ++col) {
        texts.cells[static_cast<std::size_t>(col)] = CellText(row, col);
    }
    return texts;
}

entries::BudgetedEntry frmPeriodItem::BudgetedEntryOf(int row) const {
    return {.identity = GridPeriodItem.RowData(row),
            .itemCode = CellText(row, kItemColumn),
            .elementName = CellText(row, kElementColumn)};
}

bool frmPeriodItem::ValidateCell(int row, int col, bool changed, std::string& text) {
    const int failuresBefore = mFailureNotice.Failures();
    mRefusal.clear();
    try {
        const std::string raw = CellText(row, col);
        text = data::Trim(raw);
        if (text != raw) GridPeriodItem.SetText(row, col, text);
        bool accepted = true;
        switch (col) {
            case kDateColumn:
                accepted = Accepts(mRules.CheckDate(text));
                break;
            case kCenterColumn:
                accepted = Accepts(mRules.CheckCenter(text));
                if (accepted && changed && text != mEditText) EmptyBehindCenter(row);
                break;
            case kItemColumn:
                accepted = Accepts(mRules.CheckItem(TextsOf(row)));
                break;
            case kElementColumn:
                accepted = changed && text != mEditText
                               ? ChangeElement(row, text)
                               : Accepts(entries::EntryRules::CheckElementGiven(text));
                break;
            case kDigestColumn:
                accepted = Accepts(entries::EntryRules::CheckDigest(text));
                break;
            case kAmountColumn:
                if (raw == " ") text = raw;
                accepted = Accepts(entries::EntryRules::CheckAmount(text));
                if (accepted) GridPeriodItem.SetText(row, col, text);
                break;
            default:
                return true;
        }
        if (accepted && mFailureNotice.Failures() == failuresBefore) {
            mFailureNotice.Succeeded(Work::Check);
        }
        return accepted;
    } catch (...) {
        data::ReportTrapped("ValidateCell");
        return false;
    }
}

// Everything else of an entry depends on its centre.
void frmPeriodItem::EmptyBehindCenter(int row) {
    for (int col = kItemColumn; col <= kAmountColumn; ++col) GridPeriodItem.SetText(row, col, "");
}

bool frmPeriodItem::ChangeElement(int row, const std::string& name) {
    std::int16_t detail = 0;
    if (!Accepts(mRules.CheckElement(name, detail))) return false;
    const int identity = GridPeriodItem.RowData(row);
    // First, what can fail: then nothing of the row has changed yet.
    if (identity != 0) {
        mStore.DeleteLines(identity);
        mHistory.LinesWereDeleted();
    }
    GridPeriodItem.SetText(row, kAmountColumn, "");
    mWaiting.Forget();
    mElementDetails.Replace(identity, detail);
    return true;
}

}  // namespace kelvane::ui
