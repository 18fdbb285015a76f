#include <gtest/gtest.h>

#include <stdexcept>

#include "controls/grid.h"

namespace kelvane::controls {
namespace {

// A grid of one column of titles over rows that a source hands out: "r0", "r1", …
class GridRowSource : public testing::Test {
protected:
    GridRowSource() {
        grid.SetFixedCols(0);
        grid.SetText(0, 0, "title");
        grid.SetReadOnly(true);
        grid.SetHeight(300 * 11 + Grid::kScrollBar);
    }
    void Offer(int count) {
        grid.SetRowSource(count, [this](int place) -> std::string_view {
            ++asked;
            mCells = "r" + std::to_string(place) + "\tsecond";
            return mCells;
        });
    }

    Form form{"frm"};
    Grid grid{form, "Grid"};
    int asked = 0;

private:
    std::string mCells;
};

TEST_F(GridRowSource, ReplacesTheRowsBelowTheFixedOnes) {
    grid.SetRows(5);
    grid.SetText(3, 0, "own");
    Offer(3);
    EXPECT_EQ(grid.Rows(), 4);
    EXPECT_EQ(grid.Text(0, 0), "title");
    EXPECT_EQ(grid.Text(1, 0), "r0");
    EXPECT_EQ(grid.Text(3, 0), "r2");
    EXPECT_EQ(grid.Text(3, 1), "second");
    EXPECT_EQ(grid.RowData(3), 0);
    EXPECT_EQ(grid.RowHeight(3), grid.DefaultRowHeight());
    EXPECT_THROW(grid.Text(4, 0), std::out_of_range);
}

TEST_F(GridRowSource, AsksForNothingBeforeItIsShown) {
    Offer(100000);
    EXPECT_EQ(grid.Rows(), 100001);
    grid.MoveTo(100000, 0);
    EXPECT_EQ(asked, 0);
}

TEST_F(GridRowSource, BeginsWithoutACurrentRowAtTheTop) {
    Offer(100);
    grid.MoveTo(80, 0);
    EXPECT_TRUE(grid.IsRowShown(80));
    int viewChanges = 0;
    grid.ViewChange = [&] { ++viewChanges; };
    Offer(100);
    EXPECT_EQ(viewChanges, 1);
    EXPECT_EQ(grid.Row(), 0);
    EXPECT_EQ(grid.TopRow(), 1);
}

TEST_F(GridRowSource, IsMovedIn) {
    Offer(100);
    grid.MoveTo(1, 0);
    grid.KeyDown(platform::Key::Down, 0);
    EXPECT_EQ(grid.Row(), 2);
    grid.KeyDown(platform::Key::PageDown, 0);
    EXPECT_EQ(grid.Row(), 12);
    EXPECT_TRUE(grid.IsRowShown(12));
    grid.KeyDown(platform::Key::End, platform::kCtrl);
    EXPECT_EQ(grid.Row(), 100);
    grid.SetRow(7);
    EXPECT_EQ(grid.Row(), 7);
}

TEST_F(GridRowSource, CannotBeWritten) {
    Offer(3);
    EXPECT_THROW(grid.SetText(1, 0, "x"), std::logic_error);
    EXPECT_THROW(grid.SetRowData(1, 7), std::logic_error);
    EXPECT_THROW(grid.SetRowHeight(1, 0), std::logic_error);
    EXPECT_THROW(grid.SetCellColor(1, 0, 0), std::logic_error);
    EXPECT_THROW(grid.RemoveItem(1), std::logic_error);
    EXPECT_THROW(grid.AddItem("x"), std::logic_error);
    grid.SetText(0, 0, "other");
    EXPECT_EQ(grid.Text(0, 0), "other");
}

TEST_F(GridRowSource, IsNeverEditedEvenWhenTheGridIsNotReadOnly) {
    grid.SetReadOnly(false);
    Offer(3);
    grid.MoveTo(1, 0);
    EXPECT_FALSE(grid.BeginEdit());
    EXPECT_TRUE(grid.KeyPress(U'x'));
    EXPECT_FALSE(grid.IsEditing());
    EXPECT_EQ(grid.Text(1, 0), "r0");
}

TEST_F(GridRowSource, AnEmptySourceEndsIt) {
    Offer(3);
    grid.SetRowSource(5, {});
    EXPECT_EQ(grid.Rows(), 1);
    EXPECT_EQ(grid.AddItem("own"), 1);
    EXPECT_EQ(grid.Text(1, 0), "own");
    Offer(0);
    EXPECT_EQ(grid.Rows(), 1);
    EXPECT_FALSE(grid.MoveTo(1, 0));
}

}  // namespace
}  // namespace kelvane::controls
