#include "adapters/desktop/title_marks.h"

#include <algorithm>

#include "adapters/desktop/look.h"

namespace kelvane::desktop {

namespace {

void PaintArrow(wxDC& dc, const wxRect& room, int size, bool down) {
    const int tip = down ? size : -size;
    const wxPoint arrow[] = {{-size, -tip / 2}, {size, -tip / 2}, {0, tip / 2}};
    dc.DrawPolygon(3, arrow, room.x + room.width / 2, room.y + room.height / 2);
}

void PaintFunnel(wxDC& dc, const wxRect& room, int size) {
    const int neck = std::max(1, size / 4);
    const wxPoint funnel[] = {{-size, -size}, {size, -size}, {neck, 0},
                              {neck, size},   {-neck, size}, {-neck, 0}};
    dc.DrawPolygon(6, funnel, room.x + room.width / 2, room.y + room.height / 2);
}

}  // namespace

void PaintTitleMarks(wxDC& dc, const controls::Grid& grid, int col, const wxRect& room) {
    const bool sorted = col == grid.SortColumn();
    const bool filtered = grid.IsFilteredBy(col);
    const int width = room.width / (sorted && filtered ? 2 : 1);
    const int size = std::max(2, width * 3 / 10);
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(wxBrush(look::kCurrent));
    if (sorted) PaintArrow(dc, {room.x, room.y, width, room.height}, size, grid.SortsDescending());
    if (filtered) {
        PaintFunnel(dc, {room.GetRight() - width + 1, room.y, width, room.height}, size);
    }
}

}  // namespace kelvane::desktop
