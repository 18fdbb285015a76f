// What stands in a column's title beside its text: an arrow where the rows are sorted by it, a
// funnel where they are filtered by it. The text itself stays as it is.
#pragma once

#include <wx/dc.h>

#include "controls/grid.h"

namespace kelvane::desktop {

// Fills `room`, the right end of the title, with the marks of `col`; there is at least one.
void PaintTitleMarks(wxDC& dc, const controls::Grid& grid, int col, const wxRect& room);

}  // namespace kelvane::desktop
