// Views of a grid: its rows sorted and filtered, and back in their stored order.
#include <stdexcept>

#include "tests/unit/controls/grid_fixture.h"

namespace kelvane::controls {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class GridOrderTest : public GridTest {
protected:
    // Rows of a date, a text and a number in the columns 1, 2 and 4; their data are 1, 2, 3 …
    void Fill(const std::vector<std::string>& rows) {
        grid.SetRows(1);
        for (const std::string& cells : rows) {
            const int row = grid.AddItem(cells);
            grid.SetRowData(row, row);
        }
        notes.clear();
    }
    void FillColumn(int col, const std::vector<std::string>& texts) {
        std::vector<std::string> rows;
        for (const std::string& text : texts) {
            rows.push_back(std::string(static_cast<std::size_t>(col), '\t') + text);
        }
        Fill(rows);
    }
    std::vector<std::string> Column(int col) const {
        std::vector<std::string> texts;
        for (int row = 1; row < grid.Rows(); ++row) texts.push_back(grid.Text(row, col));
        return texts;
    }
    std::vector<int> Data() const {
        std::vector<int> data;
        for (int row = 1; row < grid.Rows(); ++row) data.push_back(grid.RowData(row));
        return data;
    }
    bool KeepOnly(int col, const std::string& text) {
        return grid.FilterRows(col, [&](int row) { return grid.Text(row, col) == text; });
    }
};

TEST_F(GridOrderTest, NumbersAreSortedByValueAndBlankOnesComeLast) {
    FillColumn(4, {"10.00", "", "-3", "1,200.50", "9", " "});
    EXPECT_TRUE(grid.SortRows(4, false));
    EXPECT_THAT(Column(4), ElementsAre("-3", "9", "10.00", "1,200.50", "", " "));
    EXPECT_TRUE(grid.SortRows(4, true));
    EXPECT_THAT(Column(4), ElementsAre("1,200.50", "10.00", "9", "-3", "", " "));
    EXPECT_EQ(grid.SortColumn(), 4);
    EXPECT_TRUE(grid.SortsDescending());
}

TEST_F(GridOrderTest, WhatIsNoNumberComesBehindTheNumbers) {
    FillColumn(4, {"x", "99999999999999999999", "7"});
    grid.SortRows(4, false);
    EXPECT_THAT(Column(4), ElementsAre("7", "99999999999999999999", "x"));
}

TEST_F(GridOrderTest, DatesAreSortedByTheDay) {
    FillColumn(1, {"2004-10-01", "2004.9.30", "", "2003-12-31", "soon", "2004-2", "2004-9-3"});
    grid.SortRows(1, false);
    EXPECT_THAT(Column(1), ElementsAre("2003-12-31", "2004-9-3", "2004.9.30", "2004-10-01",
                                       "2004-2", "soon", ""));
}

TEST_F(GridOrderTest, TextsAreSortedByTheirCharactersAndEqualOnesStayInTheirStoredOrder) {
    FillColumn(2, {"b", "a", "b", "材", "a"});
    grid.SortRows(2, false);
    EXPECT_THAT(Data(), ElementsAre(2, 5, 1, 3, 4));
    grid.SortRows(2, true);
    EXPECT_THAT(Data(), ElementsAre(4, 1, 3, 2, 5));
}

TEST_F(GridOrderTest, EverythingOfARowGoesWithIt) {
    FillColumn(2, {"b", "a"});
    Lock(1, 3);
    grid.SetRowHeight(1, 450);
    grid.SortRows(2, false);
    EXPECT_THAT(Data(), ElementsAre(2, 1));
    EXPECT_TRUE(grid.IsLocked(2, 3));
    EXPECT_FALSE(grid.IsLocked(1, 3));
    EXPECT_EQ(grid.RowHeight(2), 450);
}

TEST_F(GridOrderTest, TheCurrentRowStaysCurrentAndNothingIsLeft) {
    FillColumn(2, {"b", "a", "c"});
    At(1, 3);
    grid.SetSelectionEnd(4);
    grid.SetRowTouched(true);
    grid.SortRows(2, true);
    EXPECT_EQ(Cell(), "2 3");
    EXPECT_EQ(grid.SelectionEnd(), 3);
    EXPECT_TRUE(grid.RowTouched());
    EXPECT_THAT(Notes(), ElementsAre("ViewChange"));
    grid.UnsortRows();
    EXPECT_EQ(Cell(), "1 3");
}

TEST_F(GridOrderTest, UnsortingBringsTheStoredOrderBackWithWhatWasDoneMeanwhile) {
    FillColumn(2, {"b", "c", "a"});
    grid.SortRows(2, false);
    grid.SetText(1, 3, "of a");
    grid.RemoveItem(2);
    grid.SetRowData(grid.AddItem("\t\tnew"), 9);
    EXPECT_THAT(Column(2), ElementsAre("a", "c", "new"));
    EXPECT_TRUE(grid.UnsortRows());
    EXPECT_EQ(grid.SortColumn(), -1);
    EXPECT_THAT(Column(2), ElementsAre("c", "a", "new"));
    EXPECT_EQ(grid.Text(2, 3), "of a");
}

TEST_F(GridOrderTest, AFilterPutsRowsAsideAndTheyComeBackInTheirPlaces) {
    FillColumn(2, {"x", "y", "x", "z"});
    At(3, 2);
    EXPECT_TRUE(KeepOnly(2, "x"));
    EXPECT_THAT(Data(), ElementsAre(1, 3));
    EXPECT_EQ(Cell(), "2 2");
    EXPECT_EQ(grid.RowsAside(), 2);
    EXPECT_TRUE(grid.HasRowData(2)) << "of a row that is put aside";
    EXPECT_TRUE(grid.HasRowData(3));
    EXPECT_FALSE(grid.HasRowData(0)) << "of the header alone";
    EXPECT_TRUE(grid.IsFiltered());
    EXPECT_TRUE(grid.IsFilteredBy(2));
    EXPECT_FALSE(grid.IsFilteredBy(1));
    grid.AddItem("\t\tnew");
    EXPECT_TRUE(grid.UnfilterRows());
    EXPECT_THAT(Column(2), ElementsAre("x", "y", "x", "z", "new"));
    EXPECT_EQ(Cell(), "3 2");
    EXPECT_FALSE(grid.IsFiltered());
    EXPECT_EQ(grid.RowsAside(), 0);
}

TEST_F(GridOrderTest, WithoutItsRowNoRowIsCurrent) {
    FillColumn(2, {"x", "y"});
    At(1, 2);
    grid.SetRowTouched(true);
    KeepOnly(2, "y");
    EXPECT_EQ(grid.Row(), 0);
    EXPECT_FALSE(grid.RowTouched());
    KeepOnly(2, "none");
    EXPECT_EQ(grid.Rows(), 1);
    grid.UnfilterRows();
    EXPECT_THAT(Data(), ElementsAre(1, 2));
}

TEST_F(GridOrderTest, FiltersNarrowAndTheOrderOutlastsThem) {
    Fill({"\t\tx\tp\t3", "\t\ty\tp\t2", "\t\tx\tq\t1", "\t\tx\tp\t1"});
    grid.SortRows(4, false);
    KeepOnly(2, "x");
    KeepOnly(3, "p");
    EXPECT_THAT(Data(), ElementsAre(4, 1));
    grid.UnfilterRows();
    EXPECT_THAT(Data(), ElementsAre(3, 4, 2, 1));
    EXPECT_EQ(grid.SortColumn(), 4);
    KeepOnly(2, "x");
    grid.UnsortRows();
    EXPECT_THAT(Data(), ElementsAre(1, 3, 4));
    EXPECT_TRUE(grid.IsFiltered());
}

TEST_F(GridOrderTest, TheSumIsThatOfTheShownRows) {
    Fill({"\t\tx\t\t3", "\t\ty\t\t2.5"});
    grid.SumColumn(4);
    KeepOnly(2, "y");
    EXPECT_EQ(grid.Sum().Total()->ToText(), "2.5");
    grid.SetText(1, 4, "4");
    grid.UnfilterRows();
    EXPECT_EQ(grid.Sum().Total()->ToText(), "7");
}

TEST_F(GridOrderTest, AnOpenCellIsLeftFirstAndMayRefuse) {
    FillColumn(2, {"b", "a"});
    At(1, 3);
    grid.BeginEdit();
    grid.ReplaceEditText("no");
    cellAnswer = GridAnswer::Refuse;
    EXPECT_FALSE(grid.SortRows(2, false));
    EXPECT_FALSE(KeepOnly(2, "a"));
    EXPECT_FALSE(grid.UnsortRows());
    EXPECT_FALSE(grid.UnfilterRows());
    EXPECT_THAT(Data(), ElementsAre(1, 2));
    EXPECT_EQ(grid.SortColumn(), -1);
    cellAnswer = GridAnswer::Accept;
    EXPECT_TRUE(grid.SortRows(2, false));
    EXPECT_FALSE(grid.IsEditing());
    EXPECT_EQ(grid.Text(2, 3), "no");
}

TEST_F(GridOrderTest, NewRowsAndColumnsEndEveryView) {
    FillColumn(2, {"b", "a", "b"});
    grid.SortRows(2, false);
    KeepOnly(2, "b");
    grid.SetRows(3);
    EXPECT_THAT(Data(), ElementsAre(1, 2));
    EXPECT_EQ(grid.SortColumn(), -1);
    EXPECT_FALSE(grid.IsFiltered());
    KeepOnly(2, "b");
    grid.SetCols(2);
    EXPECT_THAT(Data(), ElementsAre(1, 2));
    grid.SetRows(0);
    EXPECT_EQ(grid.Rows(), 0);
}

TEST_F(GridOrderTest, RowsOfASourceHaveNoView) {
    FillColumn(2, {"b", "a"});
    KeepOnly(2, "b");
    grid.SetRowSource(2, [](int place) { return place == 0 ? "\t\tz" : "\t\ty"; });
    EXPECT_EQ(grid.RowsAside(), 0);
    EXPECT_FALSE(grid.SortRows(2, false));
    EXPECT_FALSE(KeepOnly(2, "y"));
    EXPECT_THAT(Column(2), ElementsAre("z", "y"));
}

TEST_F(GridOrderTest, AColumnThatIsNotThereIsAnError) {
    EXPECT_THROW(grid.SortRows(5, false), std::out_of_range);
    EXPECT_THROW(grid.FilterRows(5, [](int) { return true; }), std::out_of_range);
}

TEST_F(GridOrderTest, TheMarkOfASearchEndsWithTheViewAndARemovedRow) {
    FillColumn(2, {"b", "a"});
    grid.MarkFound(2, 2);
    EXPECT_EQ(grid.FoundRow(), 2);
    EXPECT_EQ(grid.FoundCol(), 2);
    grid.RemoveItem(1);
    EXPECT_EQ(grid.FoundRow(), 0);
    grid.MarkFound(1, 2);
    grid.SortRows(2, false);
    EXPECT_EQ(grid.FoundRow(), 0);
}

}  // namespace
}  // namespace kelvane::controls
