// GridCanvas: paints a grid and turns what the mouse does there into the grid's own operations.
#pragma once

#include <wx/timer.h>
#include <wx/window.h>

#include <functional>

#include "adapters/desktop/grid_metrics.h"
#include "adapters/desktop/view_host.h"
#include "controls/grid.h"

namespace kelvane::desktop {

class GridCanvas : public wxWindow {
public:
    // `pressButton` runs when the button in the current cell is clicked.
    GridCanvas(wxWindow& parent, controls::Grid& grid, ViewHost& host,
               std::function<void()> pressButton);

    GridMetrics Metrics() const { return GridMetrics(mGrid, *this); }

    // The whole text of a cell that shows it in part; empty otherwise.
    std::string CutText(GridMetrics::Cell cell);
    // The twips that a cell needs for `text`, before zooming.
    int NeededTwips(const std::string& text);
    // Shows the window's context menu.
    void ShowMenu(wxPoint place);

private:
    void OnPaint();
    bool HasKeyboard() const;
    void OnLeftDown(wxMouseEvent& event);
    void OnLeftUp(wxMouseEvent& event);
    void OnDoubleClick(wxMouseEvent& event);
    void OnMotion(wxMouseEvent& event);
    void OnWheel(wxMouseEvent& event);
    void OnContextMenu(wxContextMenuEvent& event);
    void ClickCell(GridMetrics::Cell cell, bool extend);
    // While the button is held down over cells: the selection follows the pointer, and the list
    // scrolls as long as the pointer is beyond its edge.
    void FollowDrag();
    void DragTo(wxPoint point);
    void EndDrag();
    void ResizeTo(int pixel);
    // The whole text of the cell under the pointer, where the cell shows it in part.
    void FollowWithTip(GridMetrics::Cell cell);

    controls::Grid& mGrid;
    ViewHost& mHost;
    std::function<void()> mPressButton;
    int mResizedColumn = -1;
    int mPressedAt = 0;  // where the mouse button went down
    bool mDragging = false;
    bool mDragsRows = false;
    wxTimer mDragTimer;
    int mWheelRest = 0;
    std::string mTip;
};

}  // namespace kelvane::desktop
