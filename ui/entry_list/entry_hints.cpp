// What the lower line of the list says of the current place.
#include "ui/common/figures.h"
#include "ui/entry_list/entry_list.h"

namespace kelvane::ui {

// The entry of a row that a question is about, and where keys are silent by rule what to press.
std::string frmPeriodItem::Hint() const {
    if (const int marked = GridPeriodItem.MarkedRow(); marked > 0) {
        std::string entry = "将删除：";
        for (const int col : {kDateColumn, kCenterColumn, kItemColumn, kItemNameColumn,
                              kElementColumn, kDigestColumn, kAmountColumn}) {
            entry += (col == kDateColumn ? "" : " ") + CellText(marked, col);
        }
        return entry;
    }
    const int row = GridPeriodItem.Row();
    if (row < GridPeriodItem.FixedRows()) return {};
    const int col = GridPeriodItem.Col();
    std::string name;
    if (col == kCenterColumn) name = mCenterNames.NameOf(CellText(row, col));
    if (col == kItemColumn) name = CellText(row, kItemNameColumn);
    if (GridPeriodItem.ReadOnly() || GridPeriodItem_TextMayChange(row, col)) return name;
    if (!name.empty()) name += "    ";
    return name + (col == kItemColumn ? "项目从参照中选择：按 F2 或空格键。"
                                      : "金额由明细合计：按 Ctrl+Enter 打开明细。");
}

std::string frmPeriodItem::Figures() const {
    return FiguresOf(GridPeriodItem);
}

}  // namespace kelvane::ui
