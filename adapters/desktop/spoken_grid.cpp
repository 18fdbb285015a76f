#include "adapters/desktop/spoken_grid.h"

namespace kelvane::desktop {

controls::Spoken SpokenGrid::Part(int part) {
    return SpokenOf(mGrid, part / mGrid.Cols(), part % mGrid.Cols());
}

wxRect SpokenGrid::PlaceOf(int part) {
    return mCanvas.Metrics().CellRect(part / mGrid.Cols(), part % mGrid.Cols());
}

int SpokenGrid::PartAt(wxPoint point) {
    const GridMetrics::Cell cell = mCanvas.Metrics().CellAt(point);
    return cell.row < 0 || cell.col < 0 ? kWhole : cell.row * mGrid.Cols() + cell.col;
}

int SpokenGrid::CurrentPart() {
    return mGrid.Row() < mGrid.FixedRows() ? kWhole : mGrid.Row() * mGrid.Cols() + mGrid.Col();
}

SpokenSource::Shape SpokenGrid::TableShape() {
    return {mGrid.Rows(), mGrid.Cols(), mGrid.FixedRows(), mGrid.FixedCols()};
}

}  // namespace kelvane::desktop
