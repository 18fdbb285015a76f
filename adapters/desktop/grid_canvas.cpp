#include "adapters/desktop/grid_canvas.h"

#include <wx/cursor.h>
#include <wx/dcbuffer.h>
#include <wx/dcclient.h>

#include <algorithm>
#include <utility>

#include "adapters/desktop/cell_text.h"
#include "adapters/desktop/context_menu.h"
#include "adapters/desktop/form_keys.h"
#include "adapters/desktop/grid_painter.h"
#include "adapters/desktop/look.h"
#include "adapters/desktop/system.h"

namespace kelvane::desktop {

namespace {

constexpr int kMinColumnTwips = 150;  // a column dragged to nothing could not be dragged back
constexpr int kRowsPerWheelStep = 3;
// How often a selection follows the pointer; beyond the edge it scrolls each time, by one row more
// for each so many pixels.
constexpr int kFollowMilliseconds = 40;
constexpr int kScrollPixels = 12;

}  // namespace

GridCanvas::GridCanvas(wxWindow& parent, controls::Grid& grid, ViewHost& host,
                       std::function<void()> pressButton)
    : mGrid(grid), mHost(host), mPressButton(std::move(pressButton)) {
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    Create(&parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxWANTS_CHARS | wxBORDER_NONE);
    SetCanFocus(grid.TakesFocus());
    mHost.Keys().Attach(*this);
    Bind(wxEVT_PAINT, [this](wxPaintEvent&) { OnPaint(); });
    Bind(wxEVT_LEFT_DOWN, &GridCanvas::OnLeftDown, this);
    Bind(wxEVT_LEFT_UP, &GridCanvas::OnLeftUp, this);
    Bind(wxEVT_LEFT_DCLICK, &GridCanvas::OnDoubleClick, this);
    Bind(wxEVT_MOTION, &GridCanvas::OnMotion, this);
    Bind(wxEVT_MOUSEWHEEL, &GridCanvas::OnWheel, this);
    Bind(wxEVT_CONTEXT_MENU, &GridCanvas::OnContextMenu, this);
    Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent&) {
        mResizedColumn = -1;
        EndDrag();
    });
    mDragTimer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { FollowDrag(); });
    Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent& event) {
        mHost.OperatorFocused(mGrid);
        Refresh();
        event.Skip();
    });
    Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent& event) {
        Refresh();
        event.Skip();
    });
}

// In the usual size, with the margins and the line at the cell's right edge.
int GridCanvas::NeededTwips(const std::string& text) {
    constexpr int kBesideText = 10;
    wxClientDC dc(this);
    dc.SetFont(UiFont());
    return ToTwips(*this, dc.GetTextExtent(Text(text)).x + kBesideText);
}

void GridCanvas::OnPaint() {
    wxAutoBufferedPaintDC dc(this);
    PaintGrid(dc, *this, mGrid, Metrics(), HasKeyboard());
}

// A window that lies behind others, so that nothing has the keyboard, looks as it will have it.
bool GridCanvas::HasKeyboard() const {
    const wxWindow* focused = FindFocus();
    const bool own = focused == this || (focused != nullptr && focused->GetParent() == this);
    return mHost.Form().ActiveControl() == &mGrid && (own || focused == nullptr);
}

void GridCanvas::OnLeftDown(wxMouseEvent& event) {
    const wxPoint point = event.GetPosition();
    const GridMetrics metrics = Metrics();
    EndDrag();
    mHost.OperatorFocused(mGrid);
    if (metrics.CurrentButton().Contains(point)) {
        mPressButton();
        return;
    }
    mResizedColumn = metrics.ColumnEdgeAt(point);
    mPressedAt = event.GetX();
    if (mResizedColumn >= 0) {
        CaptureMouse();
        return;
    }
    const GridMetrics::Cell cell = metrics.CellAt(point);
    if (cell.row >= mGrid.FixedRows() && cell.col >= 0) {
        ClickCell(cell, event.ShiftDown());
    } else if (cell.row >= 0 && cell.col >= 0 && mGrid.HeaderClick) {
        mHost.Form().RunEvent("HeaderClick", [&] { mGrid.HeaderClick(cell.col); });
    }
    mHost.CatchUp();
    mHost.FocusActive();
}

// A click on a fixed cell means its whole row.
void GridCanvas::ClickCell(GridMetrics::Cell cell, bool extend) {
    const bool wholeRow = cell.col < mGrid.FixedCols();
    if (!extend || !mGrid.CanSelect()) {
        if (!mGrid.MoveTo(cell.row, wholeRow ? mGrid.Col() : cell.col)) return;
        if (mGrid.Row() != cell.row) return;
        if (wholeRow) mGrid.SelectRowsTo(cell.row);
    } else if (wholeRow) {
        mGrid.SelectRowsTo(cell.row);
    } else {
        mGrid.SelectTo(cell.row, cell.col);
    }
    mDragsRows = wholeRow;
    mDragging = mGrid.CanSelect();
    if (mDragging) mDragTimer.Start(kFollowMilliseconds);
}

// The toolkit holds the last move back until another one comes. The button's release may still be
// on its way, and says where the drag ends.
void GridCanvas::FollowDrag() {
    if (!wxGetMouseState().LeftIsDown()) {
        mDragTimer.Stop();
    } else {
        HoldMouse(*this);
        DragTo(ScreenToClient(wxGetMousePosition()));
    }
}

void GridCanvas::EndDrag() {
    mDragging = false;
    mDragTimer.Stop();
}

void GridCanvas::DragTo(wxPoint point) {
    if (!mDragging || !mGrid.CanSelect()) return;
    const GridMetrics metrics = Metrics();
    const GridMetrics::Cell cell = metrics.NearestCell(point);
    if (cell.row < 0 || cell.col < 0) return;
    const wxSize size = GetClientSize();
    const int top = metrics.Rows().front().to;
    if (point.y >= size.y) {
        const int rows = 1 + (point.y - size.y) / kScrollPixels;
        mGrid.SetTopRow(std::min(mGrid.TopRow() + rows, GridMetrics::LastTopRow(mGrid)));
    } else if (point.y < top) {
        mGrid.SetTopRow(mGrid.TopRow() - 1 - (top - point.y) / kScrollPixels);
    }
    if (point.x >= size.x) {
        mGrid.SetLeftCol(std::min(mGrid.LeftCol() + 1, GridMetrics::LastLeftCol(mGrid)));
    } else if (point.x < 0) {
        mGrid.SetLeftCol(mGrid.LeftCol() - 1);
    }
    const bool elsewhere = cell.row != mGrid.Row() || cell.col != mGrid.Col();
    if (mDragsRows) {
        mGrid.SelectRowsTo(cell.row);
    } else if (elsewhere || mGrid.SelectedRows() > 0) {
        mGrid.SelectTo(cell.row, cell.col);
    }
    mHost.CatchUp();
}

// The clicked cell becomes the current one unless it belongs to what is selected. The key for the
// menu is handled with the other keys.
void GridCanvas::OnContextMenu(wxContextMenuEvent& event) {
    // The field of an open cell has a menu of its own.
    if (event.GetEventObject() != this) {
        event.Skip();
        return;
    }
    if (event.GetPosition() == wxDefaultPosition) return;
    const wxPoint place = ScreenToClient(event.GetPosition());
    const GridMetrics::Cell cell = Metrics().CellAt(place);
    mHost.OperatorFocused(mGrid);
    if (cell.row >= mGrid.FixedRows() && cell.col >= mGrid.FixedCols() &&
        !mGrid.Selected().Contains(cell.row, cell.col) && !mGrid.MoveTo(cell.row, cell.col)) {
        return;
    }
    mHost.CatchUp();
    mHost.FocusActive();
    ShowMenu(place);
}

void GridCanvas::ShowMenu(wxPoint place) {
    ShowActionMenu(*this, place, mHost.Form());
    mHost.CatchUp();
}

// An edge that was only clicked on stays where it is.
void GridCanvas::OnLeftUp(wxMouseEvent& event) {
    if (mResizedColumn >= 0 && event.GetX() != mPressedAt) ResizeTo(event.GetX());
    mResizedColumn = -1;
    DragTo(event.GetPosition());
    EndDrag();
    if (HasCapture()) ReleaseMouse();
}

void GridCanvas::OnDoubleClick(wxMouseEvent& event) {
    const GridMetrics metrics = Metrics();
    if (const int edge = metrics.ColumnEdgeAt(event.GetPosition()); edge >= 0) {
        mGrid.FitColumn(edge);
        return;
    }
    const GridMetrics::Cell cell = metrics.CellAt(event.GetPosition());
    const bool takesRows = static_cast<bool>(mGrid.CellDoubleClick);
    const bool current = cell.row >= mGrid.FixedRows() && cell.row == mGrid.Row() &&
                         (takesRows || cell.col == mGrid.Col());
    if (!current || metrics.CurrentButton().Contains(event.GetPosition())) {
        OnLeftDown(event);  // anywhere else a double click counts as two clicks
        return;
    }
    if (takesRows) {
        mHost.Form().RunEvent("CellDoubleClick",
                              [&] { mGrid.CellDoubleClick(cell.row, cell.col); });
        return;
    }
    mGrid.BeginEdit();
}

void GridCanvas::OnMotion(wxMouseEvent& event) {
    if (mResizedColumn >= 0) {
        ResizeTo(event.GetX());
        return;
    }
    // Leaving the row may have asked something, and the button was let go there.
    if (mDragging && !event.LeftIsDown()) EndDrag();
    if (mDragging) return;
    const GridMetrics metrics = Metrics();
    const bool edge = metrics.ColumnEdgeAt(event.GetPosition()) >= 0;
    SetCursor(edge ? wxCursor(wxCURSOR_SIZEWE) : wxNullCursor);
    FollowWithTip(metrics.CellAt(event.GetPosition()));
}

std::string GridCanvas::CutText(GridMetrics::Cell cell) {
    if (cell.row < 0 || cell.col < 0 || cell.row >= mGrid.Rows() || cell.col >= mGrid.Cols()) {
        return {};
    }
    wxClientDC dc(this);
    dc.SetFont(GridFont(mGrid));
    const wxRect room = Metrics().TextRoom(cell.row, cell.col);
    const bool cut =
        !room.IsEmpty() && !FitCellText(dc, mGrid, cell.row, cell.col, room.width).whole;
    return cut ? mGrid.Text(cell.row, cell.col) : std::string();
}

void GridCanvas::FollowWithTip(GridMetrics::Cell cell) {
    const std::string tip = CutText(cell);
    if (tip == mTip) return;
    mTip = tip;
    ShowTip(*this, tip);
}

void GridCanvas::ResizeTo(int pixel) {
    const GridMetrics metrics = Metrics();
    const auto& columns = metrics.Columns();
    const auto band = std::find_if(columns.begin(), columns.end(), [this](const auto& column) {
        return column.index == mResizedColumn;
    });
    if (band == columns.end()) return;
    const int twips = ToTwips(*this, pixel - band->from) * 100 / mGrid.Zoom();
    mGrid.ResizeColumn(mResizedColumn, std::max(kMinColumnTwips, twips));
}

void GridCanvas::OnWheel(wxMouseEvent& event) {
    mWheelRest += event.GetWheelRotation();
    const int delta = std::max(1, event.GetWheelDelta());
    const int steps = mWheelRest / delta;
    mWheelRest -= steps * delta;
    if (steps == 0) return;
    if (event.ControlDown()) {
        mGrid.SetZoom(mGrid.Zoom() + steps * controls::Grid::kZoomStep);
        return;
    }
    if (event.GetWheelAxis() == wxMOUSE_WHEEL_HORIZONTAL || event.ShiftDown()) {
        mGrid.SetLeftCol(mGrid.LeftCol() - steps);
        return;
    }
    const int top = mGrid.TopRow() - steps * kRowsPerWheelStep;
    mGrid.SetTopRow(std::min(top, std::max(mGrid.TopRow(), GridMetrics::LastTopRow(mGrid))));
}

}  // namespace kelvane::desktop
