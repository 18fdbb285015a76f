#include "host/bulk/figure_table.h"

#include <algorithm>

#include "host/surroundings/columns.h"
#include "platform/blanks.h"
#include "platform/one_line.h"

namespace kelvane::host {

namespace {

using Cells = std::vector<std::string>;

constexpr std::size_t kGap = 2;

std::vector<std::size_t> WidthsOf(const FigureTable& table) {
    std::vector<std::size_t> widths(table.titles.size());
    const auto widen = [&](const Cells& cells) {
        for (std::size_t column = 0; column < widths.size(); ++column) {
            widths[column] = std::max(widths[column], ColumnsOf(cells[column]));
        }
    };
    widen(table.titles);
    for (const Cells& row : table.rows) widen(row);
    return widths;
}

}  // namespace

std::vector<std::string> LinesOf(const FigureTable& table) {
    const std::vector<std::size_t> widths = WidthsOf(table);
    std::vector<std::string> lines;
    const auto add = [&](const Cells& cells) {
        std::string line;
        for (std::size_t column = 0; column < widths.size(); ++column) {
            const std::string& cell = cells[column];
            const std::string room(widths[column] - ColumnsOf(cell), ' ');
            if (column > 0) line.append(kGap, ' ');
            line += column < table.textColumns ? cell + room : room + cell;
        }
        lines.push_back(platform::OneLine(std::string(platform::WithoutEndBlanks(line))));
    };
    add(table.titles);
    for (const Cells& row : table.rows) add(row);
    return lines;
}

}  // namespace kelvane::host
