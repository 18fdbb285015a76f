#include "controls/grid_copy.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <vector>

#include "platform/grid_text.h"

namespace kelvane::controls {

namespace {

void AppendText(std::string& copy, std::string_view text, std::string_view reasonsToQuote) {
    if (text.find_first_of(reasonsToQuote) == std::string_view::npos) {
        copy += text;
        return;
    }
    copy += '"';
    for (const char character : text) {
        copy += character;
        if (character == '"') copy += '"';
    }
    copy += '"';
}

// Amounts that nobody types stand in a column of texts, at its right like all numbers.
bool HasNumbers(const Grid& grid, int col) {
    return grid.Input(col).kind == InputKind::Number ||
           grid.ColumnAlignment(col) == Alignment::Right;
}

// What is no number stays as it is, also in a column of numbers.
void AppendNumber(std::string& copy, std::string_view text, std::string_view reasonsToQuote) {
    if (text.find_first_not_of("0123456789.,-") != std::string_view::npos) {
        AppendText(copy, text, reasonsToQuote);
        return;
    }
    std::copy_if(text.begin(), text.end(), std::back_inserter(copy),
                 [](char character) { return character != ','; });
}

}  // namespace

std::string CopiedText(const Grid& grid, const GridRange& range, bool withTitles) {
    if (range.IsEmpty()) return {};
    std::vector<int> columns;
    for (int col = range.left; col <= range.right; ++col) {
        if (grid.ColumnWidth(col) > 0) columns.push_back(col);
    }
    // A single text is mostly put into a field, where quotation marks would be part of it.
    const std::string_view reasonsToQuote =
        range.IsOneCell() && !withTitles ? "\t\r\n" : "\t\r\n\"";
    std::string copy;
    std::vector<std::string_view> cells(static_cast<std::size_t>(grid.Cols()));
    const auto appendRow = [&](int row, bool title) {
        const std::string text = grid.RowText(row);
        platform::SplitCells(text, cells);
        for (const int col : columns) {
            if (col != columns.front()) copy += '\t';
            const std::string_view cell = cells[static_cast<std::size_t>(col)];
            if (!title && HasNumbers(grid, col)) {
                AppendNumber(copy, cell, reasonsToQuote);
            } else {
                AppendText(copy, cell, reasonsToQuote);
            }
        }
        copy += '\n';
    };
    if (withTitles) appendRow(0, true);
    for (int row = range.top; row <= range.bottom; ++row) {
        if (grid.RowHeight(row) > 0) appendRow(row, false);
    }
    if (!copy.empty()) copy.pop_back();
    return copy;
}

}  // namespace kelvane::controls
