// Entering again what is there already: the cell above, and a whole entry in a new row.
#include "ui/entry_list/entry_list.h"

namespace kelvane::ui {

using platform::kCtrl;
using platform::Key;

void frmPeriodItem::AddCopyActions() {
    AddAction({.stroke = {Key::Quote, kCtrl},
               .caption = "重复上一行",
               .inMenu = true,
               .startsGroup = true,
               .possible = [this] { return IsInList() && GridPeriodItem.CanRepeatAbove(); },
               .run = [this] { RepeatCellAbove(); }});
    AddAction({.stroke = {platform::KeyOfCharacter(U'E'), kCtrl},
               .caption = "复制期初到新行",
               .inMenu = true,
               .possible =
                   [this] {
                       return IsInList() && GridPeriodItem.Row() >= 1 &&
                              Toolbar1.Button("Add")->Enabled();
                   },
               .run = [this] { CopyEntry(); }});
}

// The item's name and keywords come with it, as they do from its list; they give way again when it
// is refused.
bool frmPeriodItem::EnterItemOf(const entries::EntryTexts& source) {
    controls::Grid& grid = GridPeriodItem;
    const int row = grid.Row();
    mPickedItem.Picked(grid, row, kItemColumn, source[kItemColumn], kItemNameColumn, kKey2Column);
    for (const auto col : {kItemNameColumn, kKey1Column, kKey2Column}) {
        grid.SetText(row, col, source[col]);
    }
    grid.SetRowTouched(true);
    return grid.EnterReference(source[kItemColumn]);
}

void frmPeriodItem::RepeatCellAbove() {
    if (GridPeriodItem.Col() == kItemColumn) {
        EnterItemOf(TextsOf(GridPeriodItem.RowAbove()));
    } else {
        GridPeriodItem.RepeatAbove();
    }
}

void frmPeriodItem::CopyCell(const entries::EntryTexts& source, entries::EntryColumn col) {
    controls::Grid& grid = GridPeriodItem;
    if (source[col].empty() || grid.IsLocked(grid.Row(), col)) return;
    grid.SetCol(col);
    const bool accepted = col == kItemColumn ? EnterItemOf(source) : grid.EnterText(source[col]);
    if (!accepted) grid.CancelEdit();
}

void frmPeriodItem::CopyEntry() {
    controls::Grid& grid = GridPeriodItem;
    // The row need not be found where it was once another one is added.
    const entries::EntryTexts source = TextsOf(grid.Row());
    const int rows = grid.Rows();
    AddEntryRow();
    if (grid.Rows() == rows) return;
    const int row = grid.Row();
    CopyCell(source, kDateColumn);
    CopyCell(source, kCenterColumn);
    // An item belongs to its centre, and an amount to its element.
    if (!CellText(row, kCenterColumn).empty()) CopyCell(source, kItemColumn);
    CopyCell(source, kElementColumn);
    CopyCell(source, kDigestColumn);
    if (CellText(row, kElementColumn).empty()) {
        grid.MoveTo(row, kElementColumn);
        return;
    }
    // The lines of another entry are not copied, nor is their sum: the lower line says how to enter
    // this entry's own.
    if (ElementDetailFlag(row) == 0) CopyCell(source, kAmountColumn);
    grid.MoveTo(row, kAmountColumn);
}

}  // namespace kelvane::ui
