#include "adapters/desktop/grid_metrics.h"

#include <algorithm>
#include <cstdlib>

#include "adapters/desktop/look.h"

namespace kelvane::desktop {

namespace {

constexpr int kFrame = 2;  // pixels of the frame around the current cell
constexpr int kButtonTwips = 300;
constexpr int kMarkTwips = 210;  // one of a title
constexpr int kTextMargin = 4;
constexpr int kEdgeReach = 4;  // pixels to both sides of a column's edge

const GridMetrics::Band* FindBand(const std::vector<GridMetrics::Band>& bands, int index) {
    const auto found = std::find_if(bands.begin(), bands.end(),
                                    [index](const auto& band) { return band.index == index; });
    return found == bands.end() ? nullptr : &*found;
}

int BandAt(const std::vector<GridMetrics::Band>& bands, int position) {
    const auto found = std::find_if(bands.begin(), bands.end(), [position](const auto& band) {
        return position >= band.from && position < band.to;
    });
    return found == bands.end() ? -1 : found->index;
}

// The band at `position` or, where there is none behind the fixed ones, the next one to it.
int NearestBand(const std::vector<GridMetrics::Band>& bands, int fixed, int position) {
    int nearest = -1;
    for (const GridMetrics::Band& band : bands) {
        if (band.index >= fixed && (nearest < 0 || band.from <= position)) nearest = band.index;
    }
    return nearest;
}

// The bands of the fixed items and of those from `first` on, as far as `room` twips reach.
template <typename SizeOf, typename Pixels>
std::vector<GridMetrics::Band> LayOut(int count, int fixed, int first, int room, SizeOf sizeOf,
                                      Pixels pixels) {
    std::vector<GridMetrics::Band> bands;
    int position = 0;
    for (int index = 0; index < count && position < room; ++index) {
        if (index >= fixed && index < first) index = first;
        const int size = sizeOf(index);
        if (size > 0) {
            bands.push_back({index, pixels(position), pixels(position + size)});
        }
        position += size;
    }
    return bands;
}

// The first item of the last page: from it on all items fit into `room` twips beside the fixed
// ones.
template <typename SizeOf>
int FirstOfLastPage(int count, int fixed, int room, SizeOf sizeOf) {
    for (int index = 0; index < std::min(fixed, count); ++index) room -= sizeOf(index);
    int first = count;
    while (first > fixed && room >= sizeOf(first - 1)) room -= sizeOf(--first);
    return std::clamp(first, fixed, std::max(fixed, count - 1));
}

}  // namespace

GridMetrics::GridMetrics(const controls::Grid& grid, const wxWindow& window)
    : mGrid(grid),
      mButtonWidth(ToPixels(window, grid.Zoomed(kButtonTwips))),
      mMarkWidth(ToPixels(window, grid.Zoomed(kMarkTwips))),
      mWindow(window.GetClientSize()) {
    const auto pixels = [&](int twips) { return ToPixels(window, grid.Zoomed(twips)); };
    mRows = LayOut(
        grid.Rows(), grid.FixedRows(), grid.TopRow(), grid.ViewHeight(),
        [&](int row) { return grid.RowHeight(row); }, pixels);
    mColumns = LayOut(
        grid.Cols(), grid.FixedCols(), grid.LeftCol(), grid.ViewWidth(),
        [&](int col) { return grid.ColumnWidth(col); }, pixels);
}

wxRect GridMetrics::CellRect(int row, int col) const {
    const Band* down = FindBand(mRows, row);
    const Band* across = FindBand(mColumns, col);
    if (down == nullptr || across == nullptr) return {};
    return {across->from, down->from, across->to - across->from, down->to - down->from};
}

GridMetrics::Cell GridMetrics::CellAt(wxPoint point) const {
    return {BandAt(mRows, point.y), BandAt(mColumns, point.x)};
}

GridMetrics::Cell GridMetrics::NearestCell(wxPoint point) const {
    return {NearestBand(mRows, mGrid.FixedRows(), std::min(point.y, mWindow.y - 1)),
            NearestBand(mColumns, mGrid.FixedCols(), std::min(point.x, mWindow.x - 1))};
}

int GridMetrics::ColumnEdgeAt(wxPoint point) const {
    const int row = BandAt(mRows, point.y);
    if (row < 0 || row >= mGrid.FixedRows()) return -1;
    const auto found = std::find_if(mColumns.begin(), mColumns.end(), [&](const Band& band) {
        return std::abs(point.x - band.to) <= kEdgeReach;
    });
    return found == mColumns.end() ? -1 : found->index;
}

wxRect GridMetrics::CurrentButton() const {
    const bool reference = mGrid.CanPressReference();
    const bool list = mGrid.Row() >= mGrid.FixedRows() && mGrid.Col() < mGrid.Cols() &&
                      mGrid.HasList(mGrid.Col()) && !mGrid.ReadOnly() &&
                      !mGrid.IsLocked(mGrid.Row(), mGrid.Col());
    if (!reference && !list) return {};
    const wxRect cell = CellRect(mGrid.Row(), mGrid.Col());
    if (cell.IsEmpty()) return {};
    const int width = std::min(mButtonWidth, cell.width - 1);
    return {cell.GetRight() - width, cell.y, width, cell.height - 1};
}

wxRect GridMetrics::CurrentField() const {
    wxRect field = CellRect(mGrid.Row(), mGrid.Col());
    if (field.IsEmpty()) return field;
    const wxRect button = CurrentButton();
    if (!button.IsEmpty()) field.width -= button.width - 1;
    return field.Deflate(kFrame);
}

wxRect GridMetrics::TextRoom(int row, int col) const {
    wxRect room = CellRect(row, col);
    if (row == mGrid.Row() && col == mGrid.Col() && row >= mGrid.FixedRows() &&
        col >= mGrid.FixedCols()) {
        const wxRect button = CurrentButton();
        if (!button.IsEmpty()) room.width -= button.width;
    }
    room.width -= TitleMarks(row, col).width;
    room.width = std::min(room.GetRight() - 1, mWindow.x - 1) - room.x + 1;
    room.Deflate(kTextMargin, 0);
    return room.width > 0 ? room : wxRect();
}

wxRect GridMetrics::TitleMarks(int row, int col) const {
    if (row >= mGrid.FixedRows()) return {};
    const int marks = (col == mGrid.SortColumn() ? 1 : 0) + (mGrid.IsFilteredBy(col) ? 1 : 0);
    const wxRect cell = CellRect(row, col);
    if (marks == 0 || cell.IsEmpty()) return {};
    const int width = std::min(marks * mMarkWidth, cell.width - 1);
    return {cell.GetRight() - width, cell.y, width, cell.height};
}

int GridMetrics::LastTopRow(const controls::Grid& grid) {
    return FirstOfLastPage(grid.Rows(), grid.FixedRows(), grid.ViewHeight(),
                           [&](int row) { return grid.RowHeight(row); });
}

int GridMetrics::LastLeftCol(const controls::Grid& grid) {
    return FirstOfLastPage(grid.Cols(), grid.FixedCols(), grid.ViewWidth(),
                           [&](int col) { return grid.ColumnWidth(col); });
}

}  // namespace kelvane::desktop
