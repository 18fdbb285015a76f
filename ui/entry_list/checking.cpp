// What is in the account as a whole: its check and its summary, and the way from either to an
// entry.
#include <utility>

#include "ui/entry_list/entry_list.h"

namespace kelvane::ui {

void frmPeriodItem::AddCheckActions() {
    const auto notEditing = [this] { return !GridPeriodItem.IsEditing(); };
    AddAction({.caption = "检查",
               .inMenu = true,
               .startsGroup = true,
               .possible = notEditing,
               .run = [this] { OpenFrom(CheckEntries); }});
    AddAction({.caption = "汇总", .inMenu = true, .possible = notEditing, .run = [this] {
                   OpenFrom(SummarizeEntries);
               }});
}

void frmPeriodItem::OpenFrom(const ShowEntries& show) {
    if (!LeaveUnsaved(GridPeriodItem)) return;
    const auto isListed = [this](std::int64_t identity) {
        return identity != 0 && std::in_range<int>(identity) &&
               GridPeriodItem.HasRowData(static_cast<int>(identity));
    };
    if (const auto identity = show(isListed)) GoToEntry(*identity);
}

bool frmPeriodItem::GoToEntry(std::int64_t identity) {
    controls::Grid& grid = GridPeriodItem;
    const auto rowOf = [&] {
        int row = grid.FixedRows();
        while (row < grid.Rows() && grid.RowData(row) != identity) ++row;
        return row < grid.Rows() ? row : 0;
    };
    int row = rowOf();
    // An entry that is only filtered out is there.
    if (row == 0 && ClearFilter()) row = rowOf();
    return row > 0 && GoToFound(row, kDateColumn, kAmountColumn);
}

}  // namespace kelvane::ui
