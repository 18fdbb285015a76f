// How the component's grids look: their colours and heights, and their columns from a table.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "controls/grid.h"

namespace kelvane::ui {

inline constexpr int kListRowHeight = 300;     // twips
inline constexpr int kListHeaderHeight = 400;  // twips

struct ListColumn {
    int col = 0;
    const char* header = "";
    int width = 0;  // twips
    controls::Alignment alignment = controls::Alignment::Left;
    controls::ColumnInput input = {};
    bool reference = false;
    bool list = false;
};

// Gives a grid that has its columns and its header row the colours and heights of a list.
void StyleList(controls::Grid& grid);

// Gives the columns that are named their headers, widths and ways of typing.
void LayOutColumns(controls::Grid& grid, std::span<const ListColumn> columns);

// A list that is only looked at: its columns in their order, none of them fixed, and no rows.
void LayOutShownList(controls::Grid& grid, const std::vector<ListColumn>& columns);

// Takes all rows but the header away; no row is current then.
void ClearRows(controls::Grid& grid);

// Texts joined as a grid takes them. A tab in a text would move the texts behind it.
std::string CellsOf(const std::vector<std::string>& texts);

// Makes a column so wide that every text in it can be seen whole, by an estimate that is the same
// on every screen; but at least and at most so wide (twips; a greatest width of 0 is no limit).
void FitWholeColumn(controls::Grid& grid, int col, int least, int most);

}  // namespace kelvane::ui
