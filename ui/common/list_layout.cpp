#include "ui/common/list_layout.h"

#include <algorithm>

#include "controls/text_width.h"
#include "data/login_context.h"

namespace kelvane::ui {

using controls::Alignment;
using controls::Grid;

void StyleList(Grid& grid) {
    grid.SetDefaultRowHeight(kListRowHeight);
    grid.SetBackColor(data::gColorWhite);
    grid.SetFixedColor(data::gColorPink);
    grid.SetLockedColor(data::gColorLocked);
    grid.SetRowHeight(0, kListHeaderHeight);
}

void LayOutColumns(Grid& grid, std::span<const ListColumn> columns) {
    for (const ListColumn& column : columns) {
        grid.SetText(0, column.col, column.header);
        grid.SetColumnWidth(column.col, column.width);
        grid.SetColumnAlignment(column.col, column.alignment);
        grid.SetColumnInput(column.col, column.input);
        grid.SetColumnReference(column.col, column.reference);
        grid.SetColumnList(column.col, column.list);
        if (column.col > 0 || column.width > 0) {
            grid.SetFixedRowAlignment(column.col, Alignment::Center);
        }
    }
}

void LayOutShownList(Grid& grid, const std::vector<ListColumn>& columns) {
    grid.SetRows(0);
    grid.SetCols(static_cast<int>(columns.size()));
    grid.SetRows(1);
    grid.SetFixedCols(0);
    grid.SetReadOnly(true);
    StyleList(grid);
    LayOutColumns(grid, columns);
}

void ClearRows(Grid& grid) {
    grid.SetRows(1);
    grid.SetRow(0);
    grid.SetTopRow(1);
}

std::string CellsOf(const std::vector<std::string>& texts) {
    std::string cells;
    for (const std::string& text : texts) {
        if (&text != &texts.front()) cells += '\t';
        const std::size_t from = cells.size();
        cells += text;
        std::replace(cells.begin() + static_cast<std::ptrdiff_t>(from), cells.end(), '\t', ' ');
    }
    return cells;
}

void FitWholeColumn(Grid& grid, int col, int least, int most) {
    int width = least;
    for (int row = 0; row < grid.Rows(); ++row) {
        width = std::max(width, controls::EstimateTextWidth(grid.Text(row, col)));
    }
    grid.SetColumnWidth(col, most > 0 ? std::min(width, most) : width);
}

}  // namespace kelvane::ui
