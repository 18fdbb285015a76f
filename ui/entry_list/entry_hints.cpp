// What the lower line of the list says of the current place.
#include "ui/common/figures.h"
#include "ui/entry_list/entry_list.h"

namespace kelvane::ui {

namespace {

// The parts that say something, side by side.
std::string Joined(std::initializer_list<std::string> parts) {
    std::string text;
    for (const std::string& part : parts) {
        if (!part.empty() && !text.empty()) text += "    ";
        text += part;
    }
    return text;
}

}  // namespace

// Where keys are silent by rule.
std::string frmPeriodItem::WhatToPress(int row, int col) const {
    if (GridPeriodItem.ReadOnly() || GridPeriodItem_TextMayChange(row, col)) return {};
    return col == kItemColumn ? "项目从参照中选择：按 F2 或空格键。"
                              : "金额由明细合计：按 Ctrl+Enter 打开明细。";
}

// The entry of a row that a question is about; what a search says; why the row was refused and how
// to get out of it; else what the current code is called, what to press, and the view.
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
    if (mSearchStrip && mSearchStrip->IsOpen()) return mSearchStrip->Note();
    if (!mNote.empty()) return mNote;
    if (row < GridPeriodItem.FixedRows()) return mViews.Text();
    if (std::string way = RowHint(row); !way.empty() && !GridPeriodItem.ReadOnly()) return way;
    const int col = GridPeriodItem.Col();
    std::string name;
    if (col == kCenterColumn) name = mCenterNames.NameOf(CellText(row, col));
    if (col == kItemColumn) name = CellText(row, kItemNameColumn);
    return Joined({name, WhatToPress(row, col), mViews.Text()});
}

std::string frmPeriodItem::Figures() const {
    return FiguresOf(GridPeriodItem);
}

}  // namespace kelvane::ui
