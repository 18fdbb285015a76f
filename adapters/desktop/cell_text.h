// What a cell shows of a text that is wider than its room: of a text its beginning and an ellipsis,
// of a number nothing, for a part of a number is another number.
#pragma once

#include <wx/dc.h>
#include <wx/font.h>
#include <wx/string.h>

#include "controls/grid.h"

namespace kelvane::desktop {

// The font of a grid's texts, at the size at which the grid is shown.
wxFont GridFont(const controls::Grid& grid);

struct CellText {
    wxString text;
    int width = 0;
    bool whole = true;
};

// What fits `room` pixels of the cell's text in the font of `dc`.
CellText FitCellText(wxDC& dc, const controls::Grid& grid, int row, int col, int room);

}  // namespace kelvane::desktop
