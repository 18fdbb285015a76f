#include "adapters/desktop/spoken_grid.h"

#include <algorithm>

namespace kelvane::desktop {

std::vector<int> SpokenGrid::Columns() const {
    std::vector<int> columns;
    for (int col = 0; col < mGrid.Cols(); ++col) {
        if (mGrid.ColumnWidth(col) > 0) columns.push_back(col);
    }
    return columns;
}

GridMetrics::Cell SpokenGrid::CellOf(int part) const {
    const std::vector<int> columns = Columns();
    const auto at = std::div(part, static_cast<int>(columns.size()));
    return {at.quot, columns[static_cast<std::size_t>(at.rem)]};
}

int SpokenGrid::PartOf(GridMetrics::Cell cell) const {
    const std::vector<int> columns = Columns();
    const auto column = std::find(columns.begin(), columns.end(), cell.col);
    if (cell.row < 0 || column == columns.end()) return kWhole;
    return cell.row * static_cast<int>(columns.size()) + static_cast<int>(column - columns.begin());
}

int SpokenGrid::PartCount() {
    return mGrid.Rows() * static_cast<int>(Columns().size());
}

controls::Spoken SpokenGrid::Part(int part) {
    const GridMetrics::Cell cell = CellOf(part);
    return SpokenOf(mGrid, cell.row, cell.col);
}

wxRect SpokenGrid::PlaceOf(int part) {
    const GridMetrics::Cell cell = CellOf(part);
    return mCanvas.Metrics().CellRect(cell.row, cell.col);
}

int SpokenGrid::PartAt(wxPoint point) {
    return PartOf(mCanvas.Metrics().CellAt(point));
}

int SpokenGrid::CurrentPart() {
    return mGrid.Row() < mGrid.FixedRows() ? kWhole : PartOf({mGrid.Row(), mGrid.Col()});
}

SpokenSource::Shape SpokenGrid::TableShape() {
    const std::vector<int> columns = Columns();
    const auto fixed = std::count_if(columns.begin(), columns.end(),
                                     [this](int col) { return col < mGrid.FixedCols(); });
    return {mGrid.Rows(), static_cast<int>(columns.size()), mGrid.FixedRows(),
            static_cast<int>(fixed)};
}

}  // namespace kelvane::desktop
