// GridMetrics: where the shown cells of a grid lie in the pixels of the window that draws them.
// Only shown rows and columns are looked at, whatever the grid holds.
#pragma once

#include <wx/gdicmn.h>
#include <wx/window.h>

#include <vector>

#include "controls/grid.h"

namespace kelvane::desktop {

class GridMetrics {
public:
    // A shown row or column: its number and its edges in pixels.
    struct Band {
        int index = 0;
        int from = 0;
        int to = 0;
    };
    struct Cell {
        int row = -1;
        int col = -1;
    };

    GridMetrics(const controls::Grid& grid, const wxWindow& window);

    const std::vector<Band>& Rows() const { return mRows; }
    const std::vector<Band>& Columns() const { return mColumns; }

    // A cell's rectangle; empty when the cell is not shown.
    wxRect CellRect(int row, int col) const;
    // The cell at a point; -1 in place of what is not there.
    Cell CellAt(wxPoint point) const;
    // The shown cell that can be the current one next to a point; -1 when there is none.
    Cell NearestCell(wxPoint point) const;
    // The column whose right edge is at a point of the header; -1 when there is none.
    int ColumnEdgeAt(wxPoint point) const;
    // The button at the right end of the current cell: reference or drop-down; empty when the cell
    // has none.
    wxRect CurrentButton() const;
    // The part of the current cell that its text is edited in.
    wxRect CurrentField() const;
    // The part of a shown cell that its text has to itself: what can be seen of the cell, without
    // its button, its marks and the margins. Empty when there is none.
    wxRect TextRoom(int row, int col) const;

    // The right end of a title where it stands that the rows are sorted or filtered by its column;
    // empty for any other cell.
    wxRect TitleMarks(int row, int col) const;

    // The greatest useful top row and left column: from there the last ones fill the grid.
    static int LastTopRow(const controls::Grid& grid);
    static int LastLeftCol(const controls::Grid& grid);

private:
    const controls::Grid& mGrid;
    int mButtonWidth = 0;
    int mMarkWidth = 0;
    wxSize mWindow;
    std::vector<Band> mRows;
    std::vector<Band> mColumns;
};

}  // namespace kelvane::desktop
