#include "adapters/desktop/grid_painter.h"

#include <algorithm>

#include "adapters/desktop/cell_text.h"
#include "adapters/desktop/look.h"
#include "adapters/desktop/title_marks.h"

namespace kelvane::desktop {

namespace {

using controls::Alignment;
using controls::Grid;

constexpr int kDotSize = 2;
// How much of their colour the rows that stand out have.
constexpr int kCurrentPercent = 15;
constexpr int kMarkedPercent = 45;
constexpr int kRefusedPercent = 25;
constexpr int kFieldReach = 2;

class Painter {
public:
    Painter(wxDC& dc, const wxWindow& window, const Grid& grid, const GridMetrics& metrics,
            bool focused)
        : mDc(dc),
          mWindow(window),
          mGrid(grid),
          mMetrics(metrics),
          mFocused(focused),
          mSelected(grid.Selected()) {}

    void Paint() {
        const wxSize size = mWindow.GetClientSize();
        Fill(wxRect(size), ToColour(mGrid.BackColor()));
        mDc.SetFont(GridFont(mGrid));
        mTextHeight = mDc.GetCharHeight();
        for (const auto& row : mMetrics.Rows()) {
            for (const auto& column : mMetrics.Columns()) PaintCell(row, column);
        }
        if (mGrid.Row() >= mGrid.FixedRows() && mGrid.Row() < mGrid.Rows()) PaintCurrent();
        PaintRefused();
    }

private:
    void Fill(const wxRect& rect, const wxColour& colour) {
        mDc.SetPen(*wxTRANSPARENT_PEN);
        mDc.SetBrush(wxBrush(colour));
        mDc.DrawRectangle(rect);
    }

    bool IsSelected(int row, int col) const {
        return !mSelected.IsOneCell() && mSelected.Contains(row, col);
    }

    bool IsRefused(int row, int col) const {
        return row >= mGrid.FixedRows() &&
               (mGrid.RefusedCell() == Grid::Place{row, col} || mGrid.HasFault(row, col));
    }

    void PaintCell(const GridMetrics::Band& row, const GridMetrics::Band& column) {
        const wxRect cell(column.from, row.from, column.to - column.from, row.to - row.from);
        const bool fixed = row.index < mGrid.FixedRows() || column.index < mGrid.FixedCols();
        const controls::Color color = mGrid.CellColor(row.index, column.index);
        if (row.index >= mGrid.FixedRows() && row.index == mGrid.FoundRow() &&
            column.index == mGrid.FoundCol()) {
            Fill(cell, look::kFound);
        } else if (IsSelected(row.index, column.index)) {
            Fill(cell, look::kSelected);
        } else if (IsRefused(row.index, column.index)) {
            Fill(cell, Mixed(ToColour(color), look::kRefused, kRefusedPercent));
        } else if (row.index >= mGrid.FixedRows() && row.index == mGrid.MarkedRow()) {
            Fill(cell, Mixed(ToColour(color), look::kMarkedRow, kMarkedPercent));
        } else if (row.index >= mGrid.FixedRows() && row.index == mGrid.Row()) {
            Fill(cell, Mixed(ToColour(color), look::kCurrentRow, kCurrentPercent));
        } else if (fixed || color != mGrid.BackColor()) {
            Fill(cell, ToColour(color));
        }
        mDc.SetPen(wxPen(fixed ? look::kFixedLine : look::kGridLine));
        mDc.DrawLine(cell.GetRight(), cell.y, cell.GetRight(), cell.y + cell.height);
        mDc.DrawLine(cell.x, cell.GetBottom(), cell.x + cell.width, cell.GetBottom());
        PaintText(row.index, column.index);
        const wxRect marks = mMetrics.TitleMarks(row.index, column.index);
        if (!marks.IsEmpty()) PaintTitleMarks(mDc, mGrid, column.index, marks);
    }

    void PaintText(int row, int col) {
        const wxRect room = mMetrics.TextRoom(row, col);
        if (room.IsEmpty()) return;
        const CellText shown = FitCellText(mDc, mGrid, row, col, room.width);
        if (shown.text.empty()) return;
        int x = room.x;
        const Alignment alignment = mGrid.CellAlignment(row, col);
        if (alignment != Alignment::Left) {
            const int rest = std::max(0, room.width - shown.width);
            x += alignment == Alignment::Right ? rest : rest / 2;
        }
        const int y = room.y + (room.height - 1 - mTextHeight) / 2;
        mDc.SetTextForeground(look::kText);
        const wxDCClipper clip(mDc, room);
        mDc.DrawText(shown.text, x, y);
    }

    void PaintCurrent() {
        const wxRect cell = mMetrics.CellRect(mGrid.Row(), mGrid.Col());
        if (cell.IsEmpty()) return;
        const wxRect button = mMetrics.CurrentButton();
        if (!button.IsEmpty()) PaintButton(button);
        PaintFrame(cell, mFocused ? look::kCurrent : look::kFaintText);
    }

    void PaintRefused() {
        const auto [row, col] = mGrid.RefusedCell();
        if (row < mGrid.FixedRows() || row >= mGrid.Rows() || col < 0 || col >= mGrid.Cols()) {
            return;
        }
        wxRect cell = mMetrics.CellRect(row, col);
        if (cell.IsEmpty()) return;
        // The field of an open cell may be higher than the cell.
        if (mGrid.IsEditing()) cell.Inflate(kFieldReach);
        PaintFrame(cell, look::kRefusedEdge);
    }

    void PaintFrame(wxRect cell, const wxColour& colour) {
        mDc.SetBrush(*wxTRANSPARENT_BRUSH);
        mDc.SetPen(wxPen(colour));
        mDc.DrawRectangle(cell);
        cell.Deflate(1);
        mDc.DrawRectangle(cell);
    }

    // Three dots for a reference button, an arrow for a list.
    void PaintButton(const wxRect& button) {
        Fill(button, look::kWindow);
        mDc.SetPen(wxPen(look::kEdge));
        mDc.SetBrush(*wxTRANSPARENT_BRUSH);
        mDc.DrawRectangle(button);
        const wxPoint middle(button.x + button.width / 2, button.y + button.height / 2);
        mDc.SetPen(*wxTRANSPARENT_PEN);
        mDc.SetBrush(wxBrush(look::kText));
        if (mGrid.CanPressReference()) {
            for (const int offset : {-4, 0, 4}) {
                mDc.DrawRectangle(middle.x + offset - 1, middle.y + 2, kDotSize, kDotSize);
            }
            return;
        }
        const wxPoint arrow[] = {{-4, -2}, {4, -2}, {0, 3}};
        mDc.DrawPolygon(3, arrow, middle.x, middle.y);
    }

    wxDC& mDc;
    const wxWindow& mWindow;
    const Grid& mGrid;
    const GridMetrics& mMetrics;
    bool mFocused;
    controls::GridRange mSelected;
    int mTextHeight = 0;
};

}  // namespace

void PaintGrid(wxDC& dc, const wxWindow& window, const Grid& grid, const GridMetrics& metrics,
               bool focused) {
    Painter(dc, window, grid, metrics, focused).Paint();
}

}  // namespace kelvane::desktop
