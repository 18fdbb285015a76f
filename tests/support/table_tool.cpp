// Shows what is read of a table's file, for a script to compare:
//
//   kelvane_table_tool FILE          each sheet: "sheet NAME", then a row a line, its number and
//   its
//                                    cells, each with its column and kind: "3 A:t text|B:n 1.5";
//                                    behind the number "h" where the row is hidden; at the end the
//                                    "merged A1 B2" cells; a line break in a text is "\n"
//   kelvane_table_tool --count FILE  how many rows and cells there are
//   kelvane_table_tool --properties FILE
//                                    what a program noted in it, "NAME=TEXT" a line
//
// What cannot be read is told on standard error, with exit status 1.
#include <iostream>
#include <string>
#include <string_view>

#include "adapters/tables/cell_reference.h"
#include "adapters/tables/open_table.h"

namespace {

using namespace kelvane;
using platform::CellKind;
using platform::TableCell;
using platform::TableRow;

std::string OnOneLine(std::string_view text) {
    std::string line;
    for (const char c : text) line += c == '\n' ? "\\n" : std::string(1, c);
    return line;
}

std::string CellText(const TableCell& cell) {
    constexpr std::string_view kKinds = "-tndef";
    std::string text =
        tables::ColumnName(cell.column) + ":" + kKinds[static_cast<std::size_t>(cell.kind)] + " ";
    if (cell.kind != CellKind::Date) return text + OnOneLine(cell.text);
    return text + (cell.date.IsValid() ? cell.date.FullText() : "none");
}

void ShowSheet(platform::TableReader& reader, std::size_t sheet) {
    std::cout << "sheet " << reader.Sheets()[sheet].name << "\n";
    const auto merged = reader.Read(sheet, [](const TableRow& row) {
        std::cout << row.number << (row.hidden ? "h" : "");
        char before = ' ';
        for (const TableCell& cell : row.cells) {
            std::cout << before << CellText(cell);
            before = '|';
        }
        std::cout << "\n";
        return true;
    });
    const auto place = [](int row, int column) {
        return tables::ColumnName(column) + std::to_string(row);
    };
    for (const platform::CellRange& range : merged) {
        std::cout << "merged " << place(range.firstRow, range.firstColumn) << " "
                  << place(range.lastRow, range.lastColumn) << "\n";
    }
}

void CountCells(platform::TableReader& reader) {
    std::size_t rows = 0;
    std::size_t cells = 0;
    for (std::size_t sheet = 0; sheet < reader.Sheets().size(); ++sheet) {
        reader.Read(sheet, [&](const TableRow& row) {
            ++rows;
            cells += row.cells.size();
            return true;
        });
    }
    std::cout << rows << " " << cells << "\n";
}

void ShowProperties(platform::TableReader& reader) {
    for (const auto& [name, text] : reader.Properties()) {
        std::cout << name << "=" << OnOneLine(text) << "\n";
    }
}

}  // namespace

int main(int count, char** arguments) {
    const std::string_view option = count == 3 ? arguments[1] : "";
    const bool counts = option == "--count";
    const bool showsProperties = option == "--properties";
    if (count != 2 && !counts && !showsProperties) return 2;
    try {
        const auto reader = tables::OpenTable(arguments[count - 1]);
        if (counts) {
            CountCells(*reader);
            return 0;
        }
        if (showsProperties) {
            ShowProperties(*reader);
            return 0;
        }
        for (std::size_t sheet = 0; sheet < reader->Sheets().size(); ++sheet) {
            ShowSheet(*reader, sheet);
        }
        return 0;
    } catch (const platform::TableRefused& refused) {
        std::cerr << refused.what() << "\n";
        return 1;
    }
}
