// SpokenGrid: a grid on the screen in words.
#pragma once

#include "adapters/desktop/grid_canvas.h"
#include "adapters/desktop/spoken_window.h"
#include "controls/grid.h"

namespace kelvane::desktop {

class SpokenGrid : public SpokenSource {
public:
    SpokenGrid(GridCanvas& canvas, controls::Grid& grid) : mCanvas(canvas), mGrid(grid) {}

    controls::Spoken Whole() override { return SpokenOf(mGrid); }
    int PartCount() override { return mGrid.Rows() * mGrid.Cols(); }
    controls::Spoken Part(int part) override;
    wxRect PlaceOf(int part) override;
    int PartAt(wxPoint point) override;
    int CurrentPart() override;
    // The grid of a pick list is worked from the search field.
    bool WorksFromElsewhere() override { return !mGrid.TakesFocus(); }
    Shape TableShape() override;

private:
    GridCanvas& mCanvas;
    controls::Grid& mGrid;
};

}  // namespace kelvane::desktop
