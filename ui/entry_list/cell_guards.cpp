// Which cells' texts are not the operator's to change by hand, however he goes about it.
#include "ui/entry_list/entry_list.h"

namespace kelvane::ui {

// An item is chosen, and an amount made of detail lines is changed by changing them.
bool frmPeriodItem::GridPeriodItem_TextMayChange(int row, int col) const {
    if (col == kItemColumn) return false;
    if (col != kAmountColumn || CellText(row, kElementColumn).empty()) return true;
    return ElementDetailFlag(row) == 0;
}

}  // namespace kelvane::ui
