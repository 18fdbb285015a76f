// The size at which a grid is shown, and columns that the operator makes wider or narrower.
#include "controls/grid_size_actions.h"
#include "controls/text_width.h"
#include "tests/unit/controls/grid_fixture.h"

namespace kelvane::controls {
namespace {

using platform::kCtrl;
using platform::Key;
using platform::kShift;
using testing::ElementsAre;
using testing::IsEmpty;

// A grid of 100 rows that shows the header and ten rows, and three of its columns.
class GridSizeTest : public GridTest {
protected:
    GridSizeTest() {
        grid.SetRows(101);
        grid.SetColumnWidth(0, 0);
        for (int col = 1; col < grid.Cols(); ++col) grid.SetColumnWidth(col, 1000);
        grid.SetHeight(11 * 300 + Grid::kScrollBar);
        grid.SetWidth(3000 + Grid::kScrollBar);
        grid.MeasureText = [](const std::string& text) {
            return static_cast<int>(text.size()) * 100;
        };
        notes.clear();
    }
    void Press(Key key, int shift) { form.KeyDown(key, shift); }
};

TEST_F(GridSizeTest, ZoomingShowsMoreOrFewerRowsOfTheSameMeasures) {
    EXPECT_EQ(grid.VisibleRows(), 10);
    grid.SetZoom(50);
    EXPECT_EQ(grid.VisibleRows(), 21);
    EXPECT_EQ(grid.ViewWidth(), 6000);
    EXPECT_EQ(grid.RowHeight(1), 300);
    EXPECT_EQ(grid.CellTop(3), 900);
    EXPECT_EQ(grid.Zoomed(grid.CellTop(3)), 450);
    grid.SetZoom(200);
    EXPECT_EQ(grid.VisibleRows(), 4);
    EXPECT_EQ(grid.Zoomed(grid.ColumnWidth(1)), 2000);
    EXPECT_THAT(Notes(), ElementsAre("ViewChange", "ViewChange"));
}

TEST_F(GridSizeTest, ZoomingStopsAtItsEndsAndKeepsTheCurrentCellInSight) {
    At(10, 3);
    EXPECT_TRUE(grid.IsRowShown(10));
    grid.SetZoom(1000);
    EXPECT_EQ(grid.Zoom(), 200);
    EXPECT_TRUE(grid.IsRowShown(10));
    EXPECT_EQ(grid.LeftCol(), 3);
    grid.SetZoom(0);
    EXPECT_EQ(grid.Zoom(), 50);
    const auto revision = grid.Revision();
    grid.SetZoom(1);
    EXPECT_EQ(grid.Revision(), revision);
}

TEST_F(GridSizeTest, AColumnFitsItsTitleAndTheRowsInSight) {
    grid.SetText(0, 1, "0123456");
    grid.SetText(12, 1, "0123456789ABCDE");
    grid.SetText(50, 1, std::string(25, 'x'));
    grid.SetReadOnly(true);
    grid.FitColumn(1);
    EXPECT_EQ(grid.ColumnWidth(1), 700);
    grid.SetTopRow(12);
    grid.FitColumn(1);
    EXPECT_EQ(grid.ColumnWidth(1), 1500);
    grid.SetTopRow(1);
    grid.FitColumn(1);
    EXPECT_EQ(grid.ColumnWidth(1), 700);
    EXPECT_TRUE(grid.IsColumnResized(1));
}

TEST_F(GridSizeTest, AFittedColumnHasRoomForItsButtonsAndStaysInTheWindow) {
    grid.SetText(1, 2, "12345");
    grid.FitColumn(2);
    EXPECT_EQ(grid.ColumnWidth(2), 500 + 300);
    for (int row = 1; row < grid.Rows(); ++row) Lock(row, 2);
    grid.FitColumn(2);
    EXPECT_EQ(grid.ColumnWidth(2), 500);
    grid.SetText(1, 2, std::string(99, 'x'));
    grid.FitColumn(2);
    EXPECT_EQ(grid.ColumnWidth(2), grid.ViewWidth());
    grid.MeasureText = nullptr;
    grid.SetText(1, 2, "工程");
    grid.FitColumn(2);
    EXPECT_EQ(grid.ColumnWidth(2), EstimateTextWidth("工程"));
}

TEST_F(GridSizeTest, OnlyTheOperatorsWidthsGiveWayToTheOriginalOnes) {
    grid.ResizeColumn(1, 400);
    grid.ResizeColumn(1, 500);
    grid.ResizeColumn(2, 600);
    grid.SetColumnWidth(2, 800);
    EXPECT_TRUE(grid.IsColumnResized(1));
    EXPECT_FALSE(grid.IsColumnResized(2));
    Notes();
    grid.RestoreColumnWidths();
    EXPECT_EQ(grid.ColumnWidth(1), 1000);
    EXPECT_EQ(grid.ColumnWidth(2), 800);
    EXPECT_FALSE(grid.IsColumnResized(1));
    EXPECT_THAT(Notes(), ElementsAre("ViewChange"));
}

TEST_F(GridSizeTest, WidthsWaitUntilARefusedCellIsRight) {
    grid.ResizeColumn(1, 400);
    At(1, 2);
    grid.BeginEdit();
    grid.ReplaceEditText("no");
    cellAnswer = GridAnswer::Refuse;
    grid.RestoreColumnWidths();
    grid.FitColumn(3);
    EXPECT_EQ(grid.ColumnWidth(1), 400);
    EXPECT_EQ(grid.ColumnWidth(3), 1000);
}

TEST_F(GridSizeTest, KeysZoom) {
    AddGridSizeActions(form, grid);
    Press(Key::Plus, kCtrl);
    EXPECT_EQ(grid.Zoom(), 110);
    Press(Key::Plus, kCtrl | kShift);
    EXPECT_EQ(grid.Zoom(), 120);
    Press(Key::Minus, kCtrl);
    EXPECT_EQ(grid.Zoom(), 110);
    Press(Key::Plus, 0);
    EXPECT_EQ(grid.Zoom(), 110);
    Press(Key::D0, kCtrl);
    EXPECT_EQ(grid.Zoom(), 100);
}

TEST_F(GridSizeTest, TheMenuFitsTheCurrentColumnAndGivesWidthsBack) {
    AddGridSizeActions(form, grid);
    const WindowAction& fit = form.Actions()[0];
    const WindowAction& back = form.Actions()[1];
    EXPECT_EQ(fit.caption, "适合内容的列宽");
    EXPECT_EQ(back.caption, "恢复原始列宽");
    EXPECT_TRUE(fit.inMenu && back.inMenu);
    At(1, 3);
    EXPECT_FALSE(back.IsPossible());
    EXPECT_TRUE(form.Run(fit));
    EXPECT_EQ(grid.ColumnWidth(3), 500);
    EXPECT_TRUE(form.Run(back));
    EXPECT_EQ(grid.ColumnWidth(3), 1000);
    EXPECT_FALSE(form.Run(back));
}

class GridEnteringTest : public GridTest {};

TEST_F(GridEnteringTest, ATextIsEnteredInOneGo) {
    At(1, 4);
    EXPECT_TRUE(grid.EnterText("7"));
    EXPECT_THAT(Notes(),
                ElementsAre("EditCheck 1 4", "EditModeChange on", "CellValidate 7 1 4 cell=7",
                            "CellChanged 1 4 1d>7", "EditModeChange off"));
    cellAnswer = GridAnswer::Refuse;
    EXPECT_FALSE(grid.EnterText("8"));
    EXPECT_EQ(grid.EditText(), "8");
}

TEST_F(GridEnteringTest, AReferenceIsEnteredWhereTheOperatorMayNotType) {
    grid.TextMayChange = [](int, int) { return false; };
    At(1, 3);
    EXPECT_FALSE(grid.EnterText("x"));
    EXPECT_THAT(Notes(), ElementsAre("Beep"));
    EXPECT_TRUE(grid.EnterReference("x"));
    EXPECT_THAT(Notes(), ElementsAre("EditModeChange on", "CellValidate x 1 3 cell=x",
                                     "EditModeChange off"));
    Lock(1, 3);
    EXPECT_FALSE(grid.EnterReference("y"));
    EXPECT_EQ(grid.Text(1, 3), "x");
}

TEST_F(GridEnteringTest, TheCellAboveIsRepeated) {
    At(1, 3);
    EXPECT_FALSE(grid.CanRepeatAbove());
    At(3, 3);
    grid.SetRowHeight(2, 0);
    EXPECT_EQ(grid.RowAbove(), 1);
    EXPECT_TRUE(grid.CanRepeatAbove());
    grid.RepeatAbove();
    EXPECT_EQ(grid.Text(3, 3), "1c");
    grid.BeginEdit();
    EXPECT_FALSE(grid.CanRepeatAbove());
    grid.CancelEdit();
    Lock(3, 3);
    EXPECT_FALSE(grid.CanRepeatAbove());
    grid.SetRow(0);
    EXPECT_EQ(grid.RowAbove(), 0);
}

}  // namespace
}  // namespace kelvane::controls
