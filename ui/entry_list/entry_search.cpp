// The search for an entry through the find dialog.
#include "data/login_context.h"
#include "data/messages.h"
#include "data/text_conversion.h"
#include "ui/entry_list/entry_list.h"

namespace kelvane::ui {

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
    int found = 0;
    for (int row = 1; row < grid.Rows() && found == 0; ++row) {
        if (grid.RowHeight(row) > 0 && MatchesSearch(row)) found = row;
    }
    if (found == 0) {
        data::ShowInformation("没有找到符合条件的数据");
        return;
    }
    // Moving away would lose sight of a row that was changed and not yet saved, or of a cell that
    // may not be left.
    const bool unsaved = grid.IsEditing() || grid.RowTouched();
    if (found != grid.Row() && unsaved && !grid.LeaveRow()) return;
    if (grid.FinishEdit() == controls::GridAnswer::Refuse) return;
    grid.SetRow(found);
    if (!grid.IsRowShown(found)) grid.SetTopRow(found);
    grid.SetCol(kDateColumn);
    grid.SetSelectionEnd(kAmountColumn);
    grid.SetFocus();
}

}  // namespace kelvane::ui
