#include "adapters/output/layout/table_strip.h"

#include <algorithm>
#include <cstdint>
#include <string>

namespace kelvane::output {

using platform::PageAlignment;

namespace {

constexpr std::uint32_t kTitlesColor = 0xEDEDED;

}  // namespace

TableStrip::TableStrip(platform::Page& page, const ColumnGroup& group, int top)
    : mPage(page), mGroup(group), mTop(top), mEnd(top) {
    Rule(top);
}

void TableStrip::AppendTitles(const TableRows& rows, int lines) {
    const int height = rows.HeightOf(lines);
    mPage.areas.push_back({{Left(), mEnd, Right() - Left(), height}, kTitlesColor});
    AppendCells(rows, 0, lines, true);
    mEnd += height;
    Rule(mEnd);
}

void TableStrip::AppendRow(const TableRows& rows, int firstLine, int lines, int height) {
    AppendCells(rows, firstLine, lines, false);
    mEnd += std::max(height, rows.HeightOf(lines));
    Rule(mEnd);
}

void TableStrip::Close() {
    for (const PlacedColumn& column : mGroup) {
        mPage.lines.push_back({column.left, mTop, column.left, mEnd});
    }
    mPage.lines.push_back({Right(), mTop, Right(), mEnd});
}

void TableStrip::AppendCells(const TableRows& rows, int firstLine, int lines, bool titles) {
    const int lineHeight = LineHeight(rows.Letter().size);
    for (const PlacedColumn& column : mGroup) {
        const CellLines cell = rows.Cell(column);
        const int all = static_cast<int>(cell.lines.size());
        const int shown = std::clamp(all - firstLine, 0, lines);
        int top = mEnd + kCellMarginY;
        if (titles) top += (lines - shown) * lineHeight / 2;
        for (int line = firstLine; line < firstLine + shown; ++line, top += lineHeight) {
            const std::string_view text = cell.lines[static_cast<std::size_t>(line)];
            if (text.empty()) continue;
            mPage.texts.push_back({.text = std::string(text),
                                   .box = {column.left + kCellMarginX, top,
                                           column.width - 2 * kCellMarginX, lineHeight},
                                   .alignment = titles ? PageAlignment::Center : column.alignment,
                                   .size = cell.size,
                                   .bold = rows.Letter().bold});
        }
    }
}

}  // namespace kelvane::output
