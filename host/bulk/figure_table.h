// FigureTable: what was counted and summed up, as texts in columns, before it is shown on a
// terminal or written to a file.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace kelvane::host {

struct FigureTable {
    std::string title;
    std::vector<std::string> titles;
    std::size_t textColumns = 0;  // so many come first, the others are figures
    // The cells of each row, as many as there are titles; a figure as it is shown, "-1,234.50", or
    // empty.
    std::vector<std::vector<std::string>> rows;
};

// Lines of a terminal: the titles, then each row, in columns that are as wide as they have to be.
std::vector<std::string> LinesOf(const FigureTable& table);

}  // namespace kelvane::host
