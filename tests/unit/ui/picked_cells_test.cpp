#include "ui/common/picked_cells.h"

#include <gtest/gtest.h>

namespace kelvane::ui {
namespace {

class PickedCellsTest : public testing::Test {
protected:
    PickedCellsTest() {
        grid.SetCols(4);
        grid.SetRows(1);
        grid.AddItem("a\tb\tc\td");
    }
    void Pick(const std::string& text) {
        picked.Picked(grid, 1, 1, text, 1, 3);
        grid.SetText(1, 2, text + "2");
        grid.SetText(1, 3, text + "3");
    }

    controls::Form form{"form"};
    controls::Grid grid{form, "grid"};
    PickedCells picked;
};

TEST_F(PickedCellsTest, WhatWasPickedStaysWhenTheCellHoldsIt) {
    Pick("x");
    grid.SetText(1, 1, " x ");
    picked.EndEdit(grid);
    EXPECT_EQ(grid.RowText(1), "a\t x \tx2\tx3");
    grid.SetText(1, 1, "y");
    picked.EndEdit(grid);
    EXPECT_EQ(grid.RowText(1), "a\ty\tx2\tx3");
}

TEST_F(PickedCellsTest, WhatWasOverwrittenComesBackWhenTheCellHoldsSomethingElse) {
    Pick("x");
    grid.SetText(1, 1, "typed");
    picked.EndEdit(grid);
    EXPECT_EQ(grid.RowText(1), "a\ttyped\tc\td");
}

TEST_F(PickedCellsTest, ASecondPickStillGivesBackWhatStoodBeforeTheFirst) {
    Pick("x");
    Pick("y");
    picked.PutBack(grid);
    EXPECT_EQ(grid.RowText(1), "a\tb\tc\td");
    grid.SetText(1, 2, "later");
    picked.PutBack(grid);
    EXPECT_EQ(grid.Text(1, 2), "later");
}

TEST_F(PickedCellsTest, APickThatIsKeptGivesNothingBack) {
    Pick("x");
    picked.Forget();
    picked.PutBack(grid);
    EXPECT_EQ(grid.RowText(1), "a\tb\tx2\tx3");
}

}  // namespace
}  // namespace kelvane::ui
