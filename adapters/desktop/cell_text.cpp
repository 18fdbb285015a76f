#include "adapters/desktop/cell_text.h"

#include <wx/control.h>

#include <algorithm>
#include <string>

#include "adapters/desktop/look.h"

namespace kelvane::desktop {

namespace {

using controls::Grid;

// Lists without input, such as pick lists, have their numbers at the right.
bool IsNumber(const Grid& grid, int row, int col, const std::string& text) {
    return row >= grid.FixedRows() && col >= grid.FixedCols() &&
           (grid.Input(col).kind == controls::InputKind::Number ||
            grid.CellAlignment(row, col) == controls::Alignment::Right) &&
           text.find_first_not_of("+-.,0123456789 ") == std::string::npos;
}

wxString Hashes(wxDC& dc, int room) {
    const int one = std::max(1, dc.GetTextExtent("#").x);
    return wxString('#', static_cast<std::size_t>(std::max(1, room / one)));
}

}  // namespace

wxFont GridFont(const Grid& grid) {
    constexpr float kWhole = 100;
    return grid.Zoom() == 100 ? UiFont()
                              : UiFont().Scaled(static_cast<float>(grid.Zoom()) / kWhole);
}

CellText FitCellText(wxDC& dc, const Grid& grid, int row, int col, int room) {
    const std::string utf8 = grid.Text(row, col);
    CellText fit{.text = Text(utf8)};
    fit.width = dc.GetTextExtent(fit.text).x;
    if (fit.width <= room) return fit;
    fit.whole = false;
    fit.text = IsNumber(grid, row, col, utf8) ? Hashes(dc, room)
                                              : wxControl::Ellipsize(fit.text, dc, wxELLIPSIZE_END,
                                                                     room, wxELLIPSIZE_FLAGS_NONE);
    fit.width = dc.GetTextExtent(fit.text).x;
    return fit;
}

}  // namespace kelvane::desktop
