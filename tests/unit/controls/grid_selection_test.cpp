// Selecting over rows and columns: what is selected, what stays current, what it comes to.
#include "tests/unit/controls/grid_fixture.h"

namespace kelvane::controls {
namespace {

using platform::kCtrl;
using platform::Key;
using platform::kShift;
using testing::ElementsAre;
using testing::IsEmpty;

class GridSelectionTest : public GridTest {
protected:
    GridSelectionTest() {
        grid.SetColumnInput(4, {.kind = InputKind::Number, .decimals = 2, .grouping = true});
        for (int row = 1; row <= 3; ++row) {
            grid.SetText(row, 4, std::to_string(row) + ",000.50");
        }
        grid.SumColumn(4);
        At(2, 2);
    }

    std::string Range() const {
        const GridRange range = grid.Selected();
        if (range.IsEmpty()) return "none";
        return std::to_string(range.top) + " " + std::to_string(range.left) + " to " +
               std::to_string(range.bottom) + " " + std::to_string(range.right);
    }
    std::string Sum() const {
        const auto total = grid.SelectedSum().Total();
        return total ? total->ToText() : "too large";
    }
    void Extend(Key key, int shift = kShift) { EXPECT_TRUE(grid.ExtendSelection(key, shift)); }
};

TEST_F(GridSelectionTest, TheCurrentCellIsSelectedAndNothingWhereNoRowIsCurrent) {
    EXPECT_EQ(Range(), "2 2 to 2 2");
    EXPECT_EQ(grid.SelectedRows(), 0);
    grid.SetSelectionEnd(4);
    EXPECT_EQ(Range(), "2 2 to 2 4");
    grid.SetRow(0);
    EXPECT_EQ(Range(), "none");
    grid.SelectAll();
    EXPECT_EQ(Range(), "none");
    EXPECT_FALSE(grid.ExtendSelection(Key::Down, kShift));
}

TEST_F(GridSelectionTest, TheCurrentRowIsNeverLeftOut) {
    grid.SelectAll();
    grid.SelectTo(1, 4);
    EXPECT_EQ(Range(), "1 2 to 2 4");
    EXPECT_EQ(grid.SelectedRows(), 2);
    EXPECT_EQ(Sum(), "3001");
    grid.SelectRowsTo(2);
    Extend(Key::Down);
    EXPECT_EQ(Range(), "2 1 to 3 4");
}

TEST_F(GridSelectionTest, KeysMoveTheCornerAndLeaveNoRow) {
    Extend(Key::Down);
    EXPECT_EQ(Range(), "2 2 to 3 2");
    Extend(Key::Right);
    EXPECT_EQ(Range(), "2 2 to 3 3");
    Extend(Key::Up);
    Extend(Key::Up);
    Extend(Key::Up);
    EXPECT_EQ(Range(), "1 2 to 2 3");
    Extend(Key::Left);
    Extend(Key::Left);
    EXPECT_EQ(Range(), "1 1 to 2 2");
    EXPECT_EQ(Cell(), "2 2");
    EXPECT_THAT(Notes(), IsEmpty());
}

TEST_F(GridSelectionTest, HomeAndEndReachTheRowsAndTheListsEnds) {
    Extend(Key::Home);
    EXPECT_EQ(Range(), "2 1 to 2 2");
    Extend(Key::End);
    EXPECT_EQ(Range(), "2 2 to 2 4");
    Extend(Key::Home, kCtrl | kShift);
    EXPECT_EQ(Range(), "1 1 to 2 2");
    Extend(Key::End, kCtrl | kShift);
    EXPECT_EQ(Range(), "2 2 to 3 4");
    EXPECT_FALSE(grid.ExtendSelection(Key::F5, kShift));
}

TEST_F(GridSelectionTest, HiddenRowsAndColumnsArePassedOver) {
    At(1, 2);
    grid.SetColumnWidth(3, 0);
    grid.SetRowHeight(2, 0);
    Extend(Key::Down);
    Extend(Key::Right);
    EXPECT_EQ(Range(), "1 2 to 3 4");
    EXPECT_EQ(grid.SelectedRows(), 2);
    EXPECT_EQ(Sum(), "4001");
}

TEST_F(GridSelectionTest, ThePageKeysScrollToTheCorner) {
    for (int row = 4; row <= 40; ++row) grid.AddItem("");
    grid.SetHeight(3000);
    notes.clear();
    const int page = grid.VisibleRows();
    Extend(Key::PageDown);
    EXPECT_EQ(grid.Selected().bottom, 2 + page);
    EXPECT_TRUE(grid.IsRowShown(2 + page));
    EXPECT_EQ(Cell(), "2 2");
    EXPECT_THAT(Notes(), ElementsAre("ViewChange"));
    Extend(Key::PageUp);
    EXPECT_EQ(Range(), "2 2 to 2 2");
}

TEST_F(GridSelectionTest, WholeRowsAndEverything) {
    grid.SelectRowsTo(3);
    EXPECT_EQ(Range(), "2 1 to 3 4");
    grid.SelectRowsTo(99);
    EXPECT_EQ(Range(), "2 1 to 3 4");
    grid.SelectRowsTo(1);
    EXPECT_EQ(Range(), "1 1 to 2 4");
    grid.SelectAll();
    EXPECT_EQ(Range(), "1 1 to 3 4");
    Extend(Key::Up);
    EXPECT_EQ(Range(), "1 1 to 2 4");
    EXPECT_EQ(Cell(), "2 2");
    EXPECT_THAT(Notes(), IsEmpty());
}

TEST_F(GridSelectionTest, MovingEditingAndRemovingEndIt) {
    const auto select = [this] {
        grid.SelectTo(3, 4);
        EXPECT_EQ(grid.SelectedRows(), 2);
    };
    select();
    grid.MoveTo(2, 2);
    EXPECT_EQ(Range(), "2 2 to 2 2");
    select();
    grid.SetCol(3);
    EXPECT_EQ(Range(), "2 3 to 2 3");
    select();
    grid.SetSelectionEnd(4);
    EXPECT_EQ(Range(), "2 3 to 2 4");
    select();
    grid.BeginEdit();
    EXPECT_EQ(grid.SelectedRows(), 0);
    grid.SelectTo(3, 4);
    EXPECT_EQ(grid.SelectedRows(), 0);
    grid.CancelEdit();
    select();
    grid.RemoveItem(1);
    EXPECT_EQ(Range(), "1 3 to 1 3");
}

TEST_F(GridSelectionTest, EscapeEndsItAndNothingElse) {
    grid.SelectTo(3, 4);
    notes.clear();
    EXPECT_TRUE(grid.NavigationKey(Key::Escape, 0));
    EXPECT_EQ(Range(), "2 2 to 2 2");
    EXPECT_THAT(Notes(), IsEmpty());
    EXPECT_TRUE(grid.NavigationKey(Key::Escape, 0));
    EXPECT_THAT(Notes(), ElementsAre("AbandonRow 2"));
}

TEST_F(GridSelectionTest, ARowThatWouldNotBeLeftDoesNotMind) {
    rowAnswer = GridAnswer::Refuse;
    grid.SelectTo(3, 4);
    grid.SelectAll();
    EXPECT_EQ(Cell(), "2 2");
    EXPECT_THAT(Notes(), IsEmpty());
}

TEST_F(GridSelectionTest, TheSumFollowsTheCornerAndTheTexts) {
    grid.SelectTo(3, 2);
    EXPECT_EQ(grid.SelectedRows(), 2);
    EXPECT_EQ(Sum(), "5001");
    grid.SelectTo(1, 2);
    EXPECT_EQ(Sum(), "3001");
    grid.SelectAll();
    EXPECT_EQ(grid.SelectedRows(), 3);
    EXPECT_EQ(Sum(), "6001.5");
    grid.SetText(3, 4, "1.50");
    EXPECT_EQ(Sum(), "3002.5");
    grid.SetText(3, 3, "9");
    EXPECT_EQ(Sum(), "3002.5");
    grid.SelectTo(2, 1);
    EXPECT_EQ(Sum(), "3001");
}

// Whatever way the corner takes, the sum is that of the rows it has come to.
TEST_F(GridSelectionTest, EveryWayOfTheCornerComesToTheSameSum) {
    for (int row = 4; row <= 12; ++row) {
        grid.AddItem("\t\t\t\t" + std::to_string(row) + ",000.50");
    }
    grid.SetRowHeight(4, 0);
    grid.SetRowHeight(10, 0);
    At(6, 2);
    for (const int to : {7, 12, 1, 6, 5, 6, 9, 8, 2, 3, 11}) {
        grid.SelectTo(to, 4);
        platform::Money sum;
        int rows = 0;
        for (int row = std::min(6, to); row <= std::max(6, to); ++row) {
            if (grid.RowHeight(row) == 0) continue;
            ++rows;
            sum = sum + platform::Money::FromText(grid.Text(row, 4));
        }
        EXPECT_EQ(grid.SelectedRows(), rows) << to;
        EXPECT_EQ(Sum(), sum.ToText()) << to;
    }
    grid.SelectAll();
    EXPECT_EQ(grid.SelectedRows(), 10);
    EXPECT_EQ(Sum(), "64005");
}

}  // namespace
}  // namespace kelvane::controls
