// A table's rows as lines of text: how high each is, and what stands in its cells.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "adapters/output/layout/sheet.h"
#include "adapters/output/layout/table_columns.h"
#include "adapters/output/layout/text_measurer.h"

namespace kelvane::output {

inline constexpr int kCellMarginX = 10;
inline constexpr int kCellMarginY = 6;

// One cell, broken to its column.
struct CellLines {
    std::vector<std::string_view> lines;
    int size = 0;  // of the letters
};

class TableRows {
public:
    // Both outlive this object.
    TableRows(const Sheet& sheet, TextMeasurer& measurer) : mSheet(sheet), mMeasurer(measurer) {}

    // Reads row `row`, counted from 0; the titles' row is kTitles.
    static constexpr int kTitles = -1;
    void Read(int row);

    // Lines of text that the read row needs in the columns of `group`, at least 1.
    int CountLines(const ColumnGroup& group) const;

    // The read row's cell in `column`. The texts stay until the next row is read.
    CellLines Cell(const PlacedColumn& column) const;

    // Height of the read row with so many lines.
    int HeightOf(int lines) const { return lines * LineHeight(Letter().size) + 2 * kCellMarginY; }
    Letters Letter() const;

private:
    // Whether the cell is broken into lines when it is too long.
    bool MayBreak(const PlacedColumn& column) const;

    const Sheet& mSheet;
    TextMeasurer& mMeasurer;
    bool mTitles = false;
    std::string mRow;
    std::vector<std::string_view> mCells;
};

}  // namespace kelvane::output
