#include "ui/common/list_views.h"

#include <algorithm>
#include <utility>

#include "data/text_conversion.h"

namespace kelvane::ui {

bool LeaveUnsaved(controls::Grid& grid) {
    return (!grid.IsEditing() && !grid.RowTouched()) || grid.LeaveRow();
}

void ListViews::NextOrder(int col) {
    if (mGrid.SortColumn() != col) {
        Sort(col, false);
    } else if (!mGrid.SortsDescending()) {
        Sort(col, true);
    } else {
        Unsort();
    }
}

void ListViews::Sort(int col, bool descending) {
    if (LeaveUnsaved(mGrid)) mGrid.SortRows(col, descending);
}

void ListViews::Unsort() {
    if (LeaveUnsaved(mGrid)) mGrid.UnsortRows();
}

void ListViews::FilterBy(int col, const std::string& value) {
    if (!LeaveUnsaved(mGrid)) return;
    Lift(col);
    const ValueFilter filter{col, data::Trim(value)};
    if (!Apply(filter)) return;
    mFilters.push_back(filter);
    MakeARowCurrent();
}

std::optional<std::string> ListViews::Lift(int col) {
    const auto lifted = std::find_if(mFilters.begin(), mFilters.end(),
                                     [col](const ValueFilter& each) { return each.col == col; });
    if (lifted == mFilters.end() || !LeaveUnsaved(mGrid) || !mGrid.UnfilterRows()) return {};
    std::string value = std::move(lifted->value);
    mFilters.erase(lifted);
    for (const ValueFilter& filter : mFilters) Apply(filter);
    return value;
}

bool ListViews::Apply(const ValueFilter& filter) {
    return mGrid.FilterRows(filter.col, [&](int row) {
        return mGrid.RowData(row) == 0 || data::Trim(mGrid.Text(row, filter.col)) == filter.value;
    });
}

bool ListViews::Unfilter() {
    if (!LeaveUnsaved(mGrid) || !mGrid.UnfilterRows()) return false;
    mFilters.clear();
    MakeARowCurrent();
    return true;
}

bool ListViews::End() {
    if (mGrid.SortColumn() < 0 && !mGrid.IsFiltered()) return false;
    if (mGrid.IsFiltered() && !Unfilter()) return true;
    Unsort();
    return true;
}

void ListViews::MakeARowCurrent() {
    if (mGrid.Row() == 0 && mGrid.Rows() > mGrid.FixedRows()) mGrid.SetRow(mGrid.FixedRows());
}

std::string ListViews::Text() const {
    std::string text;
    if (mGrid.SortColumn() >= 0) {
        text = "按 " + mGrid.Text(0, mGrid.SortColumn()) +
               (mGrid.SortsDescending() ? " 降序" : " 升序");
    }
    for (const ValueFilter& filter : mFilters) {
        text += text.empty() ? "按 " : &filter == &mFilters.front() ? "，按 " : "、";
        text += mGrid.Text(0, filter.col) + "=";
        text += filter.value.empty() ? kBlankValue : filter.value;
    }
    if (!mFilters.empty()) text += " 筛选：" + ShownRows(mGrid);
    return text.empty() ? text : text + "。按 Esc 恢复原样。";
}

int AllRows(const controls::Grid& grid) {
    return grid.Rows() - grid.FixedRows() + grid.RowsAside();
}

std::string ShownRows(const controls::Grid& grid) {
    return std::to_string(grid.Rows() - grid.FixedRows()) + "/" + std::to_string(AllRows(grid)) +
           " 行";
}

std::string TitleOfShown(std::string_view title, const controls::Grid& grid) {
    std::string text(title);
    if (!grid.IsFiltered()) return text;
    return text + "（筛选出 " + std::to_string(grid.Rows() - grid.FixedRows()) + " 行，共 " +
           std::to_string(AllRows(grid)) + " 行）";
}

}  // namespace kelvane::ui
