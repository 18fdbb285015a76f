// Cells that the window's code marks as wrong.
#include "tests/unit/controls/grid_fixture.h"

namespace kelvane::controls {
namespace {

using GridFaultsTest = GridTest;

TEST_F(GridFaultsTest, AnyNumberOfCellsCanBeMarked) {
    grid.MarkFault(1, 2, true);
    grid.MarkFault(1, 4, true);
    grid.MarkFault(3, 0, true);
    EXPECT_TRUE(grid.HasFault(1, 2));
    EXPECT_TRUE(grid.HasFault(1, 4));
    EXPECT_TRUE(grid.HasFault(3, 0));
    EXPECT_FALSE(grid.HasFault(1, 3));
    EXPECT_FALSE(grid.HasFault(2, 2));
    grid.MarkFault(1, 2, false);
    EXPECT_FALSE(grid.HasFault(1, 2));
    EXPECT_TRUE(grid.HasFault(1, 4));
}

TEST_F(GridFaultsTest, AMarkIsSeenOnceItIsAnother) {
    const auto before = grid.Revision();
    grid.MarkFault(1, 2, false);
    EXPECT_EQ(grid.Revision(), before);
    grid.MarkFault(1, 2, true);
    EXPECT_GT(grid.Revision(), before);
}

TEST_F(GridFaultsTest, MarksGoWithTheirRow) {
    grid.MarkFault(2, 3, true);
    ASSERT_TRUE(grid.SortRows(2, true));
    grid.RemoveItem(1);
    EXPECT_TRUE(grid.HasFault(1, 3));
    EXPECT_FALSE(grid.HasFault(2, 3));
    ASSERT_TRUE(grid.FilterRows(2, [this](int row) { return !grid.HasFault(row, 3); }));
    EXPECT_EQ(grid.Rows(), 2);
    EXPECT_FALSE(grid.HasFault(1, 3));
    ASSERT_TRUE(grid.UnfilterRows());
    EXPECT_TRUE(grid.HasFault(1, 3) || grid.HasFault(2, 3));
}

TEST_F(GridFaultsTest, ACellThatIsNotThereIsRefused) {
    EXPECT_THROW(grid.MarkFault(9, 1, true), std::out_of_range);
    EXPECT_THROW(grid.MarkFault(1, 9, true), std::out_of_range);
    grid.SetCols(Grid::kFaultColumns + 1);
    EXPECT_FALSE(grid.HasFault(1, Grid::kFaultColumns));
    EXPECT_THROW(grid.MarkFault(1, Grid::kFaultColumns, true), std::out_of_range);
    grid.MarkFault(1, Grid::kFaultColumns - 1, true);
    EXPECT_TRUE(grid.HasFault(1, Grid::kFaultColumns - 1));
}

}  // namespace
}  // namespace kelvane::controls
