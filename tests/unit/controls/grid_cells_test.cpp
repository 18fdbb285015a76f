// Rows, columns, texts and colours.
#include <malloc.h>

#include "tests/unit/controls/grid_fixture.h"

namespace kelvane::controls {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(GridCells, ANewGridHasAHeaderAndARowOfTwoColumns) {
    Form form("Form");
    const Grid grid(form, "Grid");
    EXPECT_EQ(grid.Rows(), 2);
    EXPECT_EQ(grid.Cols(), 2);
    EXPECT_EQ(grid.FixedRows(), 1);
    EXPECT_EQ(grid.FixedCols(), 1);
    EXPECT_EQ(grid.Row(), 0);
}

TEST_F(GridTest, TextsKeepToTheirCells) {
    grid.SetText(2, 0, "fixed");
    grid.SetText(2, 2, "");
    grid.SetText(2, 4, "a longer text");
    EXPECT_EQ(grid.Text(2, 0), "fixed");
    EXPECT_EQ(Row(2), "2a||2c|a longer text");
    EXPECT_EQ(Row(1), "1a|1b|1c|1d");
}

TEST_F(GridTest, ATabInATextBecomesABlank) {
    grid.SetText(1, 2, "x\ty");
    EXPECT_EQ(Row(1), "1a|x y|1c|1d");
}

TEST_F(GridTest, AnAddedRowHasExactlyTheGridsCells) {
    EXPECT_EQ(grid.AddItem(""), 4);
    EXPECT_EQ(grid.AddItem("0\t1\t2"), 5);
    EXPECT_EQ(grid.AddItem("0\t1\t2\t3\t4\t5\t6"), 6);
    EXPECT_EQ(Row(4), "|||");
    EXPECT_EQ(Row(5), "1|2||");
    EXPECT_EQ(Row(6), "1|2|3|4");
    EXPECT_EQ(grid.RowData(6), 0);
    EXPECT_EQ(grid.RowHeight(6), grid.DefaultRowHeight());
}

TEST_F(GridTest, ReshapingKeepsWhatStays) {
    grid.SetCols(3);
    EXPECT_EQ(Row(2), "2a|2b");
    grid.SetCols(5);
    EXPECT_EQ(Row(2), "2a|2b||");
    grid.SetRows(2);
    grid.SetRows(3);
    EXPECT_EQ(Row(1), "1a|1b||");
    EXPECT_EQ(Row(2), "|||");
    EXPECT_THROW(grid.SetCols(0), std::out_of_range);
    EXPECT_THROW(grid.SetRows(-1), std::out_of_range);
}

TEST_F(GridTest, ReshapingKeepsTheCurrentCellInside) {
    At(3, 4);
    grid.SetCols(3);
    EXPECT_EQ(Cell(), "3 2");
    grid.SetRows(2);
    EXPECT_EQ(Cell(), "1 2");
    grid.SetRows(1);
    EXPECT_EQ(grid.Row(), 0);
}

TEST_F(GridTest, RemovingTheCurrentRowResetsItsDetails) {
    At(2, 2);
    grid.RemoveItem(2);
    EXPECT_THAT(Notes(), ElementsAre("DetailReset", "ViewChange", "EnterCell 2 2"));
    EXPECT_EQ(Cell(), "2 2");
    EXPECT_EQ(Row(2), "3a|3b|3c|3d");
    grid.RemoveItem(2);
    EXPECT_EQ(Cell(), "1 2");
    EXPECT_THAT(Notes(), ElementsAre("DetailReset", "ViewChange", "EnterCell 1 2"));
    grid.RemoveItem(1);
    EXPECT_EQ(grid.Row(), 0);
    EXPECT_THAT(Notes(), ElementsAre("DetailReset", "ViewChange"));
}

TEST_F(GridTest, TheRowThatIsEnteredAfterARemovalIsShownAndWhole) {
    grid.SetHeight(3 * 300);
    At(1, 2);
    grid.SetTopRow(3);
    std::string entered;
    grid.EnterCell = [&] {
        entered = Cell() + " " + grid.Text(grid.Row(), 2) + " of " + std::to_string(grid.Rows());
        EXPECT_TRUE(grid.IsRowShown(grid.Row()));
    };
    grid.RemoveItem(1);
    EXPECT_EQ(entered, "1 2 2b of 3");
}

TEST_F(GridTest, FewerRowsByCodeEnterNoCell) {
    At(3, 2);
    grid.SetRows(2);
    EXPECT_EQ(Cell(), "1 2");
    EXPECT_THAT(Notes(), ElementsAre("DetailReset", "ViewChange", "DetailReset", "ViewChange"));
}

TEST_F(GridTest, RemovingAnotherRowKeepsTheCurrentOne) {
    At(2, 2);
    grid.RemoveItem(3);
    EXPECT_EQ(Cell(), "2 2");
    grid.RemoveItem(1);
    EXPECT_EQ(Cell(), "1 2");
    EXPECT_EQ(Row(1), "2a|2b|2c|2d");
    EXPECT_THAT(Notes(), IsEmpty());
    EXPECT_THROW(grid.RemoveItem(2), std::out_of_range);
}

TEST_F(GridTest, RemovingTheRowThatIsBeingEditedEndsTheEditFirst) {
    At(3, 2);
    grid.BeginEdit();
    grid.ReplaceEditText("x");
    Notes();
    grid.RemoveItem(3);
    EXPECT_THAT(Notes(),
                ElementsAre("EditModeChange off", "DetailReset", "ViewChange", "EnterCell 2 2"));
    EXPECT_FALSE(grid.IsEditing());
    EXPECT_FALSE(grid.RowTouched());
}

TEST_F(GridTest, RowDataBelongsToItsRow) {
    grid.SetRowData(2, 40000);
    grid.SetRowData(3, -1);
    grid.RemoveItem(1);
    EXPECT_EQ(grid.RowData(1), 40000);
    EXPECT_EQ(grid.RowData(2), -1);
}

TEST_F(GridTest, CellsOutsideTheGridAreErrors) {
    EXPECT_THROW(grid.Text(4, 1), std::out_of_range);
    EXPECT_THROW(grid.Text(1, 5), std::out_of_range);
    EXPECT_THROW(grid.Text(-1, 1), std::out_of_range);
    EXPECT_THROW(grid.SetText(4, 1, ""), std::out_of_range);
    EXPECT_THROW(grid.SetRowData(4, 1), std::out_of_range);
    EXPECT_THROW(grid.RowHeight(4), std::out_of_range);
    EXPECT_THROW(grid.ColumnWidth(5), std::out_of_range);
    EXPECT_THROW(grid.CellColor(5, 1), std::out_of_range);
    EXPECT_THROW(grid.SetCellColor(5, 1, 0), std::out_of_range);
    EXPECT_THROW(grid.SetCellColor(1, 5, 0), std::out_of_range);
}

TEST_F(GridTest, TheColourOfTheRowPastTheLastIsIgnored) {
    grid.SetCellColor(4, 1, grid.LockedColor());
    grid.AddItem("");
    EXPECT_FALSE(grid.IsLocked(4, 1));
}

TEST_F(GridTest, CellsHaveTheGridsColoursUntilTheyAreGivenOne) {
    grid.SetBackColor(Rgb(1, 2, 3));
    grid.SetFixedColor(Rgb(4, 5, 6));
    grid.SetCellColor(2, 3, Rgb(7, 8, 9));
    EXPECT_EQ(grid.CellColor(2, 3), 0x090807U);
    EXPECT_EQ(grid.CellColor(2, 2), 0x030201U);
    EXPECT_EQ(grid.CellColor(2, 0), 0x060504U);
    EXPECT_EQ(grid.CellColor(0, 3), 0x060504U);
    grid.SetBackColor(Rgb(0, 0, 0));
    EXPECT_EQ(grid.CellColor(2, 2), 0U);
    EXPECT_EQ(grid.CellColor(2, 3), 0x090807U);
}

TEST_F(GridTest, ColoursGoWithTheirRows) {
    Lock(1, 2);
    Lock(3, 2);
    EXPECT_TRUE(grid.IsLocked(1, 2));
    EXPECT_FALSE(grid.IsLocked(2, 2));
    grid.RemoveItem(1);
    EXPECT_FALSE(grid.IsLocked(1, 2));
    EXPECT_TRUE(grid.IsLocked(2, 2));
    grid.SetCellColor(2, 2, grid.BackColor());
    EXPECT_FALSE(grid.IsLocked(2, 2));
}

TEST_F(GridTest, TheLockedColourIsTheGridsToChoose) {
    grid.SetCellColor(1, 2, Rgb(9, 9, 9));
    EXPECT_FALSE(grid.IsLocked(1, 2));
    grid.SetLockedColor(Rgb(9, 9, 9));
    EXPECT_TRUE(grid.IsLocked(1, 2));
}

TEST_F(GridTest, HeaderCellsHaveTheirOwnAlignment) {
    grid.SetColumnAlignment(4, Alignment::Right);
    grid.SetFixedRowAlignment(4, Alignment::Center);
    EXPECT_EQ(grid.CellAlignment(0, 4), Alignment::Center);
    EXPECT_EQ(grid.CellAlignment(1, 4), Alignment::Right);
    EXPECT_EQ(grid.CellAlignment(1, 1), Alignment::Left);
}

TEST_F(GridTest, TheFormatTextTellsLayoutsApart) {
    std::vector<std::string> formats{grid.FormatText()};
    const std::vector<std::function<void()>> changes{
        [this] { grid.SetText(0, 1, "日期"); },
        [this] { grid.SetColumnWidth(1, 1300); },
        [this] { grid.SetColumnAlignment(4, Alignment::Right); },
        [this] { grid.SetColumnInput(3, {.kind = InputKind::Number, .decimals = 2}); },
        [this] { grid.SetCols(4); },
    };
    for (const auto& change : changes) {
        change();
        const std::string format = grid.FormatText();
        EXPECT_THAT(formats, testing::Not(testing::Contains(format)));
        formats.push_back(format);
    }
    grid.SetText(1, 1, "changed");
    grid.AddItem("");
    EXPECT_EQ(grid.FormatText(), formats.back());
}

TEST_F(GridTest, AHundredThousandRowsStaySmall) {
    const std::string row =
        "\t2004-01-01\tGC001\tXM0001\t城南综合楼工程项目\tA级\t住宅\t直接材料费\t期初摘要\t1,234."
        "56";
    Form other("Form");
    Grid large(other, "Large");
    large.SetCols(10);
    large.SetRows(1);
    const auto before = mallinfo2().uordblks;
    for (int number = 1; number <= 100'000; ++number) {
        large.SetRowData(large.AddItem(row), number);
        for (const int col : {4, 5, 6}) large.SetCellColor(number, col, large.LockedColor());
    }
    const auto used = mallinfo2().uordblks - before;
    // 0 where a memory checker stands in for the allocator.
    EXPECT_LT(used / 100'000, 500U);
    EXPECT_EQ(large.Text(100'000, 9), "1,234.56");
    EXPECT_TRUE(large.IsLocked(100'000, 5));
    EXPECT_FALSE(large.IsLocked(100'000, 7));
}

}  // namespace
}  // namespace kelvane::controls
