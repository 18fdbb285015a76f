// What a selection is on the clipboard.
#include "controls/grid_copy.h"

#include "tests/unit/controls/grid_fixture.h"

namespace kelvane::controls {
namespace {

class GridCopyTest : public GridTest {
protected:
    GridCopyTest() {
        grid.SetFormat("|<日期|<代码|<摘要|>金额");
        grid.SetText(1, 1, "2004-05-31");
        grid.SetText(1, 4, "12,345.60");
        grid.SetText(2, 4, "-1,234,567.00");
        grid.SetText(3, 4, "不详");
    }
    std::string Copy(const GridRange& range, bool withTitles = false) const {
        return CopiedText(grid, range, withTitles);
    }
};

TEST_F(GridCopyTest, RowsAreLinesAndCellsStandBehindTabs) {
    EXPECT_EQ(Copy({1, 1, 2, 2}), "2004-05-31\t1b\n2a\t2b");
    EXPECT_EQ(Copy({}), "");
}

TEST_F(GridCopyTest, NumbersArePlainAndOtherTextsAreNot) {
    EXPECT_EQ(Copy({1, 4, 3, 4}), "12345.60\n-1234567.00\n不详");
    grid.SetText(1, 3, "1,000 个");
    grid.SetText(1, 4, "约 1,000");
    EXPECT_EQ(Copy({1, 3, 1, 4}), "1,000 个\t约 1,000");
}

TEST_F(GridCopyTest, AmountsThatNobodyTypesArePlainToo) {
    grid.SetColumnInput(4, {});
    EXPECT_EQ(Copy({1, 4, 2, 4}), "12345.60\n-1234567.00");
    grid.SetColumnAlignment(4, Alignment::Left);
    EXPECT_EQ(Copy({1, 4, 1, 4}), "12,345.60");
}

TEST_F(GridCopyTest, TitlesComeFirst) {
    EXPECT_EQ(Copy({2, 3, 3, 4}, true), "摘要\t金额\n2c\t-1234567.00\n3c\t不详");
}

TEST_F(GridCopyTest, WhatIsHiddenIsLeftOut) {
    grid.SetColumnWidth(2, 0);
    grid.SetRowHeight(2, 0);
    EXPECT_EQ(Copy({1, 1, 3, 3}, true), "日期\t摘要\n2004-05-31\t1c\n3a\t3c");
}

TEST_F(GridCopyTest, TextsThatWouldBreakTheTableAreQuoted) {
    grid.SetText(1, 2, "a\nb");
    grid.SetText(1, 3, "3\" 管");
    EXPECT_EQ(Copy({1, 2, 1, 3}), "\"a\nb\"\t\"3\"\" 管\"");
    EXPECT_EQ(Copy({1, 2, 1, 2}), "\"a\nb\"");
}

TEST_F(GridCopyTest, ASingleTextStaysAsItIsWhereItCan) {
    grid.SetText(1, 3, "3\" 管");
    EXPECT_EQ(Copy({1, 3, 1, 3}), "3\" 管");
    EXPECT_EQ(Copy({1, 3, 1, 3}, true), "摘要\n\"3\"\" 管\"");
}

TEST_F(GridCopyTest, RowsOfASourceAreCopiedToo) {
    std::string cells;
    grid.SetRowSource(3, [&cells](int place) -> std::string_view {
        cells = "\t\tD0" + std::to_string(place);
        return cells;
    });
    EXPECT_EQ(Copy({2, 2, 3, 2}), "D01\nD02");
}

}  // namespace
}  // namespace kelvane::controls
