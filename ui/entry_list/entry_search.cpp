// The search for an entry: through the find dialog, on and back from there, and while it is typed.
#include "data/login_context.h"
#include "data/messages.h"
#include "data/text_conversion.h"
#include "ui/entry_list/entry_list.h"

namespace kelvane::ui {

namespace {

void TellNothingFound() {
    data::ShowInformation("没有找到符合条件的数据");
}

}  // namespace

// An empty item cell matches any code; an empty sought keyword matches any cell.
bool frmPeriodItem::MatchesSearch(int row) const {
    const std::string item = data::Trim(CellText(row, kItemColumn));
    if (!item.empty() && item != FindItemCode) return false;
    if (!FindKeyCode1.empty() && data::Trim(CellText(row, kKey1Column)) != FindKeyCode1) {
        return false;
    }
    return FindKeyCode2.empty() || data::Trim(CellText(row, kKey2Column)) == FindKeyCode2;
}

void frmPeriodItem::FindEntry() {
    bClickOk = false;
    ExecCom = false;
    if (const auto answer = AskWhatToFind()) {
        ExecCom = true;
        FindItemCode = answer->itemCode;
        FindKeyCode1 = answer->key1;
        FindKeyCode2 = answer->key2;
        bClickOk = true;
    }
    if (!bClickOk || !ExecCom) return;

    controls::Grid& grid = GridPeriodItem;
    const auto first = [&] {
        int row = grid.FixedRows();
        while (row < grid.Rows() && (grid.RowHeight(row) == 0 || !MatchesSearch(row))) ++row;
        return row < grid.Rows() ? row : 0;
    };
    int found = first();
    // An entry that is only filtered out is there.
    if (found == 0 && ClearFilter()) found = first();
    if (found == 0) {
        TellNothingFound();
        return;
    }
    GoToFound(found, kDateColumn, kAmountColumn);
}

void frmPeriodItem::FindNext(int step) {
    if (mSearchStrip && mSearchStrip->IsOpen()) return mSearchStrip->GoOn(step);
    if (FindItemCode.empty()) return FindEntry();
    std::string note;
    int found = FindMatch(step, note);
    if ((found == 0 || found == GridPeriodItem.Row()) && ClearFilter()) {
        found = FindMatch(step, note);
    }
    if (found == 0) {
        TellNothingFound();
        return;
    }
    if (GoToFound(found, kDateColumn, kAmountColumn)) mNote = note;
}

int frmPeriodItem::FindMatch(int step, std::string& note) const {
    const controls::Grid& grid = GridPeriodItem;
    const int first = grid.FixedRows();
    const int count = grid.Rows() - first;
    // Where no row is current the search begins at the end it comes from.
    note.clear();
    const int start = grid.Row() >= first ? grid.Row() - first : step > 0 ? -1 : count;
    for (int passed = 1; passed <= count; ++passed) {
        const int place = start + step * passed;
        const int row = first + (place + 2 * count) % count;
        if (grid.RowHeight(row) == 0 || !MatchesSearch(row)) continue;
        if (row == grid.Row()) {
            note = "只有这一行符合条件。";
        } else if (place < 0 || place >= count) {
            note = NoteOfWrap(step);
        }
        return row;
    }
    return 0;
}

void frmPeriodItem::SearchTyping() {
    if (!mSearchStrip) {
        mSearchStrip = std::make_unique<SearchStrip>(
            *this, GridPeriodItem, [this](int row, int col) { return GoToHit(row, col); });
        PlaceSearchStrip();
    }
    mSearchStrip->Open();
}

void frmPeriodItem::PlaceSearchStrip() {
    if (mSearchStrip) mSearchStrip->Place(Picture1.Top(), Picture1.Height());
}

void frmPeriodItem::CloseSearchStrip() {
    if (mSearchStrip) mSearchStrip->Close();
}

bool frmPeriodItem::ClearFilter() {
    return GridPeriodItem.IsFiltered() && mViews.Unfilter();
}

bool frmPeriodItem::GoToHit(int row, int col) {
    controls::Grid& grid = GridPeriodItem;
    if (row != grid.Row() && !LeaveUnsaved(grid)) return false;
    if (grid.FinishEdit() == controls::GridAnswer::Refuse) return false;
    grid.SetRow(row);
    grid.SetCol(col);
    grid.ShowCurrent();
    // A grey amount gets its button; an element that is missing is not asked for by a search.
    if (!CellText(row, kElementColumn).empty()) GridPeriodItem_EnterCell();
    return true;
}

bool frmPeriodItem::GoToFound(int row, int firstCol, int lastCol) {
    controls::Grid& grid = GridPeriodItem;
    // Moving away would lose sight of a row that was changed and not yet saved, or of a cell that
    // may not be left.
    if (row != grid.Row() && !LeaveUnsaved(grid)) return false;
    if (grid.FinishEdit() == controls::GridAnswer::Refuse) return false;
    grid.SetRow(row);
    if (!grid.IsRowShown(row)) grid.SetTopRow(row);
    grid.SetCol(firstCol);
    grid.SetSelectionEnd(lastCol);
    grid.SetFocus();
    return true;
}

}  // namespace kelvane::ui
