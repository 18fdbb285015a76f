// Paints the shown part of a grid from its state.
#pragma once

#include <wx/dc.h>
#include <wx/window.h>

#include "adapters/desktop/grid_metrics.h"
#include "controls/grid.h"

namespace kelvane::desktop {

// Fills `window`'s whole area through `dc`. `focused` tells whether the keyboard works on the grid.
void PaintGrid(wxDC& dc, const wxWindow& window, const controls::Grid& grid,
               const GridMetrics& metrics, bool focused);

}  // namespace kelvane::desktop
