// Which cells' texts are not the operator's to change by hand, however he goes about it.
#include "ui/entry_list/entry_list.h"

namespace kelvane::ui {

// An item is chosen from its pick list, and an amount made of detail lines changes with the lines.
bool frmPeriodItem::GridPeriodItem_TextMayChange(int row, int col) const {
    if (col == kItemColumn) return false;
    if (col != kAmountColumn || CellText(row, kElementColumn).empty()) return true;
    return ElementDetailFlag(row) == 0;
}

}  // namespace kelvane::ui
