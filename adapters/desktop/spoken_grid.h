// SpokenGrid: a grid on the screen in words. Its parts are the cells of the columns that have a
// width, row by row.
#pragma once

#include <vector>

#include "adapters/desktop/grid_canvas.h"
#include "adapters/desktop/spoken_window.h"
#include "controls/grid.h"

namespace kelvane::desktop {

class SpokenGrid : public SpokenSource {
public:
    SpokenGrid(GridCanvas& canvas, controls::Grid& grid) : mCanvas(canvas), mGrid(grid) {}

    controls::Spoken Whole() override { return SpokenOf(mGrid); }
    int PartCount() override;
    controls::Spoken Part(int part) override;
    wxRect PlaceOf(int part) override;
    int PartAt(wxPoint point) override;
    int CurrentPart() override;
    // The grid of a pick list is worked from the search field.
    bool WorksFromElsewhere() override { return !mGrid.TakesFocus(); }
    Shape TableShape() override;

private:
    // The numbers of the columns that have a width.
    std::vector<int> Columns() const;
    GridMetrics::Cell CellOf(int part) const;
    int PartOf(GridMetrics::Cell cell) const;

    GridCanvas& mCanvas;
    controls::Grid& mGrid;
};

}  // namespace kelvane::desktop
