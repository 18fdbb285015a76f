// What the operator does with the list as a whole: sorting it by a title, filtering it, finding on.
#include "ui/entry_list/column_values.h"
#include "ui/entry_list/entry_list.h"

namespace kelvane::ui {

using platform::kCtrl;
using platform::KeyOfCharacter;
using platform::kShift;

void frmPeriodItem::GridPeriodItem_HeaderClick(int col) {
    if (col >= GridPeriodItem.FixedCols()) mViews.NextOrder(col);
}

void frmPeriodItem::FilterByCurrentCell() {
    mViews.FilterBy(GridPeriodItem.Col(), CellText(GridPeriodItem.Row(), GridPeriodItem.Col()));
}

void frmPeriodItem::FilterByList() {
    if (!LeaveUnsaved(GridPeriodItem)) return;
    const int col = GridPeriodItem.Col();
    const std::optional<std::string> before = mViews.Lift(col);
    std::optional<std::string> value = frmColumnValues(GridPeriodItem, col).Ask();
    if (!value) value = before;
    if (value) mViews.FilterBy(col, *value);
}

bool frmPeriodItem::EndView() {
    const int row = GridPeriodItem.Row();
    const bool isNew = row >= GridPeriodItem.FixedRows() && GridPeriodItem.RowData(row) == 0;
    if (mSearchStrip && mSearchStrip->IsOpen()) {
        mSearchStrip->Close();
        return true;
    }
    if (!Notice().empty() && Notice() == mSaveNotes.Text()) {
        mSaveNotes.AllWereSeen();
        mFailureNotice.Remind({});
        return true;
    }
    return !isNew && mViews.End();
}

void frmPeriodItem::AddFindActions() {
    const auto notEditing = [this] { return !GridPeriodItem.IsEditing(); };
    AddAction({.stroke = {KeyOfCharacter(U'F'), kCtrl},
               .caption = "查找",
               .inMenu = true,
               .startsGroup = true,
               .possible = notEditing,
               .run = [this] { SearchTyping(); }});
    AddAction({.stroke = {KeyOfCharacter(U'G'), kCtrl},
               .caption = "定位下一个",
               .inMenu = true,
               .possible = notEditing,
               .run = [this] { FindNext(1); }});
    AddAction({.stroke = {KeyOfCharacter(U'G'), kCtrl | kShift},
               .caption = "定位上一个",
               .inMenu = true,
               .possible = notEditing,
               .run = [this] { FindNext(-1); }});
}

void frmPeriodItem::AddViewActions() {
    controls::Grid& grid = GridPeriodItem;
    const auto onCell = [&grid] { return !grid.IsEditing() && grid.Row() >= grid.FixedRows(); };
    AddAction({.caption = "按此列升序",
               .inMenu = true,
               .startsGroup = true,
               .possible = onCell,
               .run = [this] { mViews.Sort(GridPeriodItem.Col(), false); }});
    AddAction({.caption = "按此列降序", .inMenu = true, .possible = onCell, .run = [this] {
                   mViews.Sort(GridPeriodItem.Col(), true);
               }});
    AddAction({.caption = "恢复原来的顺序",
               .inMenu = true,
               .possible = [&grid] { return grid.SortColumn() >= 0; },
               .run = [this] { mViews.Unsort(); }});
    AddAction({.stroke = {KeyOfCharacter(U'L'), kCtrl},
               .caption = "按此值筛选",
               .inMenu = true,
               .startsGroup = true,
               .possible = onCell,
               .run = [this] { FilterByCurrentCell(); }});
    AddAction({.stroke = {KeyOfCharacter(U'L'), kCtrl | kShift},
               .caption = "按列中的值筛选…",
               .inMenu = true,
               .possible = [&grid] { return !grid.IsEditing() && grid.Rows() > grid.FixedRows(); },
               .run = [this] { FilterByList(); }});
    AddAction({.caption = "取消筛选",
               .inMenu = true,
               .possible = [&grid] { return grid.IsFiltered(); },
               .run = [this] { mViews.Unfilter(); }});
}

}  // namespace kelvane::ui
