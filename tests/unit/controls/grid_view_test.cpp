// Which part of the grid is shown, and where its cells lie.
#include "tests/unit/controls/grid_fixture.h"

namespace kelvane::controls {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A grid of 100 rows that shows the header and ten rows, and 3000 twips of its columns.
class GridViewTest : public GridTest {
protected:
    GridViewTest() {
        grid.SetRows(101);
        grid.SetRowHeight(0, 400);
        grid.SetColumnWidth(0, 0);
        for (int col = 1; col < grid.Cols(); ++col) grid.SetColumnWidth(col, 1000);
        grid.SetHeight(400 + 10 * 300 + Grid::kScrollBar);
        grid.SetWidth(3000 + Grid::kScrollBar);
        notes.clear();
    }
};

TEST_F(GridViewTest, ShowsTheRowsThatFitWhole) {
    EXPECT_EQ(grid.VisibleRows(), 10);
    EXPECT_TRUE(grid.IsRowShown(0));
    EXPECT_TRUE(grid.IsRowShown(1));
    EXPECT_TRUE(grid.IsRowShown(10));
    EXPECT_FALSE(grid.IsRowShown(11));
    EXPECT_FALSE(grid.IsRowShown(-1));
    EXPECT_FALSE(grid.IsRowShown(101));
    grid.SetHeight(grid.Height() - 1);
    EXPECT_EQ(grid.VisibleRows(), 9);
}

TEST_F(GridViewTest, NearTheEndOnlyTheRowsThatAreThereAreShown) {
    grid.SetTopRow(98);
    EXPECT_EQ(grid.VisibleRows(), 3);
    EXPECT_TRUE(grid.IsRowShown(100));
    EXPECT_FALSE(grid.IsRowShown(97));
}

TEST_F(GridViewTest, ScrollingRaisesViewChange) {
    grid.SetTopRow(5);
    EXPECT_EQ(grid.TopRow(), 5);
    grid.SetTopRow(5);
    EXPECT_THAT(Notes(), ElementsAre("ViewChange"));
    grid.SetLeftCol(2);
    EXPECT_EQ(grid.LeftCol(), 2);
    grid.SetLeftCol(2);
    EXPECT_THAT(Notes(), ElementsAre("ViewChange"));
}

TEST_F(GridViewTest, ScrollingStopsAtTheEnds) {
    grid.SetTopRow(0);
    EXPECT_EQ(grid.TopRow(), 1);
    grid.SetTopRow(1000);
    EXPECT_EQ(grid.TopRow(), 100);
    grid.SetLeftCol(0);
    EXPECT_EQ(grid.LeftCol(), 1);
    grid.SetLeftCol(99);
    EXPECT_EQ(grid.LeftCol(), 4);
}

TEST_F(GridViewTest, AChangedSizeRaisesViewChange) {
    grid.SetWidth(grid.Width());
    grid.SetHeight(grid.Height());
    EXPECT_THAT(Notes(), IsEmpty());
    grid.SetWidth(2000);
    grid.SetHeight(2000);
    EXPECT_THAT(Notes(), ElementsAre("ViewChange", "ViewChange"));
    EXPECT_THROW(grid.SetWidth(-1), std::invalid_argument);
    EXPECT_THROW(grid.SetHeight(-1), std::invalid_argument);
}

TEST_F(GridViewTest, DraggingAColumnsEdgeEndsTheEditAndRaisesViewChange) {
    At(1, 2);
    grid.BeginEdit();
    Notes();
    grid.ResizeColumn(2, 1500);
    EXPECT_THAT(Notes(), ElementsAre("EditModeChange off", "ViewChange"));
    EXPECT_EQ(grid.ColumnWidth(2), 1500);
    grid.ResizeColumn(2, -5);
    EXPECT_EQ(grid.ColumnWidth(2), 0);
}

TEST_F(GridViewTest, CellsLieInTwipsFromTheGridsCorner) {
    EXPECT_EQ(grid.CellTop(0), 0);
    EXPECT_EQ(grid.CellTop(1), 400);
    EXPECT_EQ(grid.CellTop(3), 1000);
    EXPECT_EQ(grid.CellLeft(1), 0);
    EXPECT_EQ(grid.CellLeft(4), 3000);
    grid.SetTopRow(3);
    grid.SetLeftCol(2);
    EXPECT_EQ(grid.CellTop(0), 0);
    EXPECT_EQ(grid.CellTop(3), 400);
    EXPECT_EQ(grid.CellTop(1), -200);
    EXPECT_EQ(grid.CellLeft(2), 0);
    EXPECT_EQ(grid.CellLeft(4), 2000);
}

TEST_F(GridViewTest, RowsOfDifferentHeightsAreAddedUp) {
    grid.SetRowHeight(1, 500);
    grid.SetRowHeight(2, 0);
    EXPECT_EQ(grid.CellTop(3), 900);
    EXPECT_EQ(grid.VisibleRows(), 10);
}

TEST_F(GridViewTest, TheCurrentCellIsScrolledIntoView) {
    At(1, 1);
    grid.MoveTo(15, 1);
    EXPECT_EQ(grid.TopRow(), 6);
    EXPECT_THAT(Notes(), ElementsAre("RowValidate 1 1", "ViewChange", "EnterCell 15 1"));
    grid.MoveTo(4, 4);
    EXPECT_EQ(grid.TopRow(), 4);
    EXPECT_EQ(grid.LeftCol(), 2);
    grid.MoveTo(4, 1);
    EXPECT_EQ(grid.LeftCol(), 1);
}

TEST_F(GridViewTest, ACellThatIsOpenedIsScrolledIntoView) {
    At(1, 1);
    grid.SetTopRow(50);
    Notes();
    grid.BeginEdit();
    EXPECT_EQ(grid.TopRow(), 1);
    EXPECT_THAT(Notes(), ElementsAre("EditCheck 1 1", "ViewChange", "EditModeChange on"));
}

TEST_F(GridViewTest, TheTopRowStaysInsideWhenRowsGo) {
    grid.SetTopRow(90);
    grid.SetRows(50);
    EXPECT_EQ(grid.TopRow(), 49);
    grid.SetRows(1);
    EXPECT_EQ(grid.TopRow(), 1);
}

TEST_F(GridViewTest, OnlyWhatCanBeSeenAddsToTheRevision) {
    const auto revision = grid.Revision();
    grid.SetWidth(grid.Width());
    grid.SetReadOnly(false);
    EXPECT_EQ(grid.Revision(), revision);
    grid.SetText(1, 1, "x");
    EXPECT_GT(grid.Revision(), revision);
}

}  // namespace
}  // namespace kelvane::controls
