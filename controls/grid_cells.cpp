// The grid's rows, columns, texts and colours.
#include <algorithm>
#include <stdexcept>
#include <utility>

#include "controls/grid.h"
#include "controls/joined_cells.h"
#include "platform/grid_text.h"

namespace kelvane::controls {

namespace {

// Stands in a colour set for a cell that was given no colour; no colour of the platform's has these
// bits.
constexpr Color kOwnColor = 0xFFFFFFFFU;

// The characters that stand for the alignments, in their order.
constexpr std::string_view kMarks = "<^>";

// A cell's text: the tab is the separator of cells, so one inside a text becomes a blank.
std::string CellText(std::string_view text) {
    std::string cell(text);
    std::replace(cell.begin(), cell.end(), '\t', ' ');
    return cell;
}

// `cells` with exactly `count` cells.
std::string FitCells(std::string_view cells, int count) {
    const auto tabs = static_cast<int>(std::count(cells.begin(), cells.end(), '\t'));
    if (tabs < count) {
        return std::string(cells).append(static_cast<std::size_t>(std::max(0, count - 1 - tabs)),
                                         '\t');
    }
    return std::string(cells.substr(0, FindCell(cells, count - 1).second));
}

}  // namespace

Grid::Grid(Form& form, std::string name) : Control(form, std::move(name)) {
    mColorSets.emplace_back();  // set 0: every cell in the grid's own colour
    mColorIndex[{}] = 0;
    mColumns.resize(2);
    SetRows(2);
}

void Grid::SetRows(int rows) {
    if (rows < 0) throw std::out_of_range(Name() + ": a grid cannot have fewer than 0 rows");
    EndViews();
    while (Rows() > rows) EraseRow(Rows() - 1);
    if (mRows.empty()) mNextPlace = 0;
    while (Rows() < rows) AddItem("");
}

void Grid::SetFixedRows(int rows) {
    Assign(mFixedRows, rows < 1 ? 1 : rows);
    SumColumn(mSummedColumn);
}

void Grid::SumColumn(int col) {
    EndSelection();
    mSummedColumn = col;
    mSum = {};
    for (int row = mFixedRows; row < static_cast<int>(mRows.size()) && IsSummed(row, col); ++row) {
        mSum.Add(CellIn(RowAt(row).cells, col));
    }
}

void Grid::SetCols(int cols) {
    if (cols < 1) throw std::out_of_range(Name() + ": a grid needs a column");
    EndViews();
    mColumns.resize(static_cast<std::size_t>(cols));
    for (GridRow& row : mRows) row.cells = FitCells(row.cells, cols);
    EndSelection();
    SumColumn(mSummedColumn < cols ? mSummedColumn : -1);
    if (mCol >= cols) mCol = mSelectionEnd = cols - 1;
    mLeftCol = std::clamp(mLeftCol, mFixedCols, std::max(mFixedCols, cols - 1));
    Touch();
}

void Grid::SetFixedCols(int cols) {
    EndSelection();
    mFixedCols = cols;
    mLeftCol = cols;
    if (mCol < cols) mCol = mSelectionEnd = cols;
    Touch();
}

void Grid::SetFormat(std::string_view format) {
    SetCols(static_cast<int>(std::count(format.begin(), format.end(), '|')) + 1);
    for (int col = 0; col < Cols(); ++col) {
        std::string_view header = format.substr(0, format.find('|'));
        format.remove_prefix(std::min(format.size(), header.size() + 1));
        const std::size_t mark = header.empty() ? 0 : kMarks.find(header.front());
        if (!header.empty() && mark != std::string_view::npos) {
            SetColumnAlignment(col, static_cast<Alignment>(mark));
            header.remove_prefix(1);
        }
        if (Rows() > 0) SetText(0, col, header);
    }
}

int Grid::AddItem(std::string_view cells) {
    if (mSourceRows > 0) throw std::logic_error(Name() + ": its rows come from a source");
    GridRow row;
    row.cells = FitCells(cells, Cols());
    row.height = mDefaultRowHeight;
    row.place = mNextPlace++;
    mRows.push_back(std::move(row));
    if (IsSummed(Rows() - 1, mSummedColumn)) mSum.Add(CellIn(mRows.back().cells, mSummedColumn));
    Touch();
    return Rows() - 1;
}

void Grid::RemoveItem(int row) {
    const bool current = row == mRow;
    EraseRow(row);
    if (!current || mRow < mFixedRows) return;
    ShowCurrent();
    if (EnterCell) Raise("EnterCell", EnterCell);
}

void Grid::EraseRow(int row) {
    RowAt(row);
    const bool current = row == mRow && row >= mFixedRows;
    if (current && mEditing) CloseEdit();
    if (IsSummed(row, mSummedColumn)) mSum.Take(CellIn(RowAt(row).cells, mSummedColumn));
    EndSelection();
    mRows.erase(mRows.begin() + row);
    mFoundRow = 0;
    if (row == mMarkedRow) mMarkedRow = 0;
    if (row < mMarkedRow) --mMarkedRow;
    if (row == mRefused.row) mRefused = {};
    if (row < mRefused.row) --mRefused.row;
    if (row < mRow || mRow >= Rows()) mRow = std::max(0, mRow - 1);
    if (mRow < mFixedRows) mRow = 0;
    if (mTopRow >= Rows()) mTopRow = std::max(mFixedRows, Rows() - 1);
    if (current) mRowTouched = false;
    Touch();
    if (current && DetailReset) Raise("DetailReset", DetailReset);
    if (current && ViewChange) Raise("ViewChange", ViewChange);
}

void Grid::SetRowSource(int count, RowSource cells) {
    if (mEditing) CancelEdit();
    EndViews();
    const auto kept = std::min(mRows.size(), static_cast<std::size_t>(mFixedRows));
    mRows.resize(kept);
    SumColumn(mSummedColumn);
    mSource = std::move(cells);
    mSourceRows = mSource ? std::max(0, count) : 0;
    mSourceRow.height = mDefaultRowHeight;
    EndSelection();
    mRow = 0;
    mTopRow = mFixedRows;
    mRowTouched = false;
    mRefused = {};
    Touch();
    if (ViewChange) Raise("ViewChange", ViewChange);
}

std::string_view Grid::CellsAt(int row) const {
    const std::string& own = RowAt(row).cells;
    const auto place = row - static_cast<int>(mRows.size());
    return place < 0 ? std::string_view(own) : mSource(place);
}

std::string Grid::Text(int row, int col) const {
    const std::string_view cells = CellsAt(row);
    ColumnAt(col);
    return std::string(CellIn(cells, col));
}

void Grid::SetText(int row, int col, std::string_view text) {
    std::string& cells = RowAt(row).cells;
    ColumnAt(col);
    const auto [begin, end] = FindCell(cells, col);
    if (IsSummed(row, col)) CountChangedCell(row, false);
    cells.replace(begin, end - begin, CellText(text));
    if (IsSummed(row, col)) CountChangedCell(row, true);
    Touch();
}

void Grid::CountCell(ColumnSum& sum, int row, bool comes) const {
    const std::string_view cell = CellIn(CellsAt(row), mSummedColumn);
    if (comes) {
        sum.Add(cell);
    } else {
        sum.Take(cell);
    }
}

void Grid::CountChangedCell(int row, bool comes) {
    CountCell(mSum, row, comes);
    if (mSelection.Range().HasRow(row) && RowHeight(row) > 0) {
        CountCell(mSelection.sum, row, comes);
    }
}

void Grid::SetRowData(int row, int data) {
    RowAt(row).data = data;
    Touch();
}

int Grid::InternColors(ColorSet colors) {
    const auto [known, added] =
        mColorIndex.try_emplace(colors, static_cast<int>(mColorSets.size()));
    if (added) mColorSets.push_back(std::move(colors));
    return known->second;
}

void Grid::SetCellColor(int row, int col, Color color) {
    ColumnAt(col);
    if (row == Rows()) return;
    GridRow& target = RowAt(row);
    if (CellColor(row, col) == color) return;
    const auto known =
        std::find_if(mColorSteps.begin(), mColorSteps.end(), [&](const ColorStep& step) {
            return step.from == target.colors && step.col == col && step.color == color;
        });
    target.colors =
        known != mColorSteps.end() ? known->to : AddColorStep(target.colors, col, color);
    Touch();
}

int Grid::AddColorStep(int from, int col, Color color) {
    constexpr std::size_t kMaxSteps = 32;
    ColorSet colors = mColorSets[static_cast<std::size_t>(from)];
    if (colors.size() < mColumns.size()) colors.resize(mColumns.size(), kOwnColor);
    colors[static_cast<std::size_t>(col)] = color;
    const int set = InternColors(std::move(colors));
    if (mColorSteps.size() < kMaxSteps) mColorSteps.push_back({from, col, color, set});
    return set;
}

Color Grid::CellColor(int row, int col) const {
    ColumnAt(col);
    const ColorSet& colors = mColorSets[static_cast<std::size_t>(RowAt(row).colors)];
    const auto index = static_cast<std::size_t>(col);
    if (index < colors.size() && colors[index] != kOwnColor) return colors[index];
    return row < mFixedRows || col < mFixedCols ? mFixedColor : mBackColor;
}

bool Grid::HasFault(int row, int col) const {
    ColumnAt(col);
    return col < kFaultColumns && ((RowAt(row).faults >> col) & 1U) != 0;
}

void Grid::MarkFault(int row, int col, bool fault) {
    if (HasFault(row, col) == fault) return;
    if (col >= kFaultColumns) {
        throw std::out_of_range(Name() + ": no mark in column " + std::to_string(col));
    }
    RowAt(row).faults ^= std::uint32_t{1} << col;
    Touch();
}

Alignment Grid::CellAlignment(int row, int col) const {
    const Column& column = ColumnAt(col);
    return row < mFixedRows ? column.fixedAlignment : column.alignment;
}

void Grid::SetFixedRowAlignment(int col, Alignment alignment) {
    ColumnAt(col).fixedAlignment = alignment;
    Touch();
}

void Grid::SetColumnWidth(int col, int twips) {
    Assign(ColumnAt(col).width, std::max(0, twips));
    ColumnAt(col).originalWidth = -1;
}

void Grid::SetColumnAlignment(int col, Alignment alignment) {
    Assign(ColumnAt(col).alignment, alignment);
}

void Grid::SetRowHeight(int row, int twips) {
    EndSelection();
    Assign(RowAt(row).height, std::max(0, twips));
}

std::string Grid::FormatText() const {
    std::vector<platform::ColumnText> columns;
    for (int col = 0; col < Cols(); ++col) {
        const Column& column = ColumnAt(col);
        columns.push_back({.title = Rows() > 0 ? Text(0, col) : "",
                           .width = column.width,
                           .alignment = static_cast<platform::ColumnAlignment>(column.alignment),
                           .kind = static_cast<platform::ColumnKind>(column.input.kind),
                           .decimals = column.input.decimals});
    }
    return platform::EncodeColumns(columns);
}

std::string Grid::DataText() const {
    std::string text;
    for (int row = mFixedRows; row < Rows(); ++row) platform::AppendRow(text, CellsAt(row));
    return text;
}

const Grid::GridRow& Grid::RowAt(int row) const {
    if (row < 0 || row >= Rows()) {
        throw std::out_of_range(Name() + ": no row " + std::to_string(row));
    }
    const auto index = static_cast<std::size_t>(row);
    return index < mRows.size() ? mRows[index] : mSourceRow;
}

Grid::GridRow& Grid::RowAt(int row) {
    if (row >= static_cast<int>(mRows.size()) && row < Rows()) {
        throw std::logic_error(Name() + ": its rows come from a source");
    }
    return const_cast<GridRow&>(std::as_const(*this).RowAt(row));
}

const Grid::Column& Grid::ColumnAt(int col) const {
    if (col < 0 || col >= Cols()) {
        throw std::out_of_range(Name() + ": no column " + std::to_string(col));
    }
    return mColumns[static_cast<std::size_t>(col)];
}

Grid::Column& Grid::ColumnAt(int col) {
    return const_cast<Column&>(std::as_const(*this).ColumnAt(col));
}

void Grid::Raise(std::string_view place, const std::function<void()>& notification) {
    Owner().RunEvent(Name() + "_" + std::string(place), notification);
}

}  // namespace kelvane::controls
