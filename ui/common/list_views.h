// ListViews: the operator's views of a list, sorted by a column and filtered by the values of
// columns. The account knows nothing of them; each row stays the entry that it is.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/grid.h"

namespace kelvane::ui {

// Before the operator loses sight of the current row: one that was changed is checked and saved as
// when it is left, and a cell that is open is closed. False, after their messages, when either is
// refused.
bool LeaveUnsaved(controls::Grid& grid);

class ListViews {
public:
    // `grid` outlives the object. Each routine but Text() leaves an unsaved row first and does
    // nothing when that is refused.
    explicit ListViews(controls::Grid& grid) : mGrid(grid) {}

    // A click on a title: ascending, descending, stored order.
    void NextOrder(int col);
    void Sort(int col, bool descending);
    void Unsort();
    // Shows the rows with this text in a column, besides the filters of other columns, and rows
    // that were never saved.
    void FilterBy(int col, const std::string& value);
    // Ends the filter of one column; the value it was filtered by.
    std::optional<std::string> Lift(int col);
    // True when no row is put aside any more.
    bool Unfilter();
    // Both together; true when there was a view.
    bool End();
    // The grid was filled anew.
    void Forget() { mFilters.clear(); }

    // "按 日期 升序，按 要素=人工费 筛选：3/25 行。按 Esc 恢复原样。"; empty without a view.
    std::string Text() const;

private:
    struct ValueFilter {
        int col = 0;
        std::string value;
    };
    bool Apply(const ValueFilter& filter);
    // A row is current whenever there is one.
    void MakeARowCurrent();

    controls::Grid& mGrid;
    std::vector<ValueFilter> mFilters;
};

// What stands for a value that is empty.
inline constexpr std::string_view kBlankValue = "（空白）";

// How many rows a grid has with those that a filter has put aside.
int AllRows(const controls::Grid& grid);
// "3/25 行": how many rows a filtered grid shows of how many.
std::string ShownRows(const controls::Grid& grid);
// What is printed and written takes the rows as they are shown; above a filtered list, and in the
// name that a file is offered, stands that rows are missing.
std::string TitleOfShown(std::string_view title, const controls::Grid& grid);

}  // namespace kelvane::ui
