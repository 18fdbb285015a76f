#include "adapters/output/layout/table_rows.h"

#include <algorithm>

#include "adapters/output/layout/line_breaking.h"
#include "adapters/output/layout/number_text.h"
#include "adapters/output/layout/page_head.h"

namespace kelvane::output {

namespace {

constexpr int kThousandths = 100;  // of a millimetre in a tenth

int RoomOf(const PlacedColumn& column) {
    return std::max(1, column.width - 2 * kCellMarginX);
}

}  // namespace

Letters TableRows::Letter() const {
    return mTitles ? Letters{mSheet.settings.headSize, true}
                   : Letters{mSheet.settings.bodySize, false};
}

void TableRows::Read(int row) {
    mTitles = row == kTitles;
    mCells.resize(mSheet.columns.size());
    if (mTitles) {
        for (std::size_t col = 0; col < mCells.size(); ++col) {
            mCells[col] = mSheet.columns[col].title;
        }
    } else {
        mRow = mSheet.cells(row);
        platform::SplitCells(mRow, mCells);
    }
}

int TableRows::CountLines(const ColumnGroup& group) const {
    std::size_t lines = 1;
    for (const PlacedColumn& column : group) {
        const std::string_view text = mCells[column.cell];
        const int room = RoomOf(column) * kThousandths;
        if (mMeasurer.Width(text, Letter()) <= room) continue;
        lines = std::max(lines, Cell(column).lines.size());
    }
    return static_cast<int>(lines);
}

// A number that is broken in two reads as two numbers.
bool TableRows::MayBreak(const PlacedColumn& column) const {
    const platform::ColumnText& kind = mSheet.columns[column.cell];
    const std::string_view text = mCells[column.cell];
    return mTitles || !(CellNumber(kind, text) || CellDate(kind, text));
}

CellLines TableRows::Cell(const PlacedColumn& column) const {
    const std::string_view text = mCells[column.cell];
    const Letters letters = Letter();
    const int room = RoomOf(column);
    if (!MayBreak(column)) return {{text}, FittingSize(text, letters, room, mMeasurer)};
    return {BreakLines(text, letters, room * kThousandths, mMeasurer), letters.size};
}

}  // namespace kelvane::output
