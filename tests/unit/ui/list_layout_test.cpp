#include "ui/common/list_layout.h"

#include <gtest/gtest.h>

#include "controls/text_width.h"

namespace kelvane::ui {
namespace {

class ListForm : public controls::Form {
public:
    ListForm() : Form("frmList"), grid(*this, "Grid") {
        LayOutShownList(grid, {{0, "编号", 500, controls::Alignment::Right}, {1, "说明", 900}});
    }
    controls::Grid grid;
};

TEST(ListLayoutTest, AShownListHasItsColumnsAndNoRows) {
    ListForm form;
    EXPECT_EQ(form.grid.Rows(), 1);
    EXPECT_EQ(form.grid.FixedCols(), 0);
    EXPECT_TRUE(form.grid.ReadOnly());
    EXPECT_EQ(form.grid.RowText(0), "编号\t说明");
    EXPECT_EQ(form.grid.ColumnAlignment(0), controls::Alignment::Right);
    form.grid.AddItem("1\ta");
    form.grid.SetRow(1);
    ClearRows(form.grid);
    EXPECT_EQ(form.grid.Rows(), 1);
    EXPECT_EQ(form.grid.Row(), 0);
}

TEST(ListLayoutTest, ATextKeepsItsColumnWhateverIsInIt) {
    EXPECT_EQ(CellsOf({}), "");
    EXPECT_EQ(CellsOf({"", "a\tb", "c"}), "\ta b\tc");
}

TEST(ListLayoutTest, AColumnIsAsWideAsItsWidestText) {
    ListForm form;
    const std::string text = "一个比标题长得多的说明";
    form.grid.AddItem("1\t" + text);
    form.grid.AddItem("2\t短");
    const int needed = controls::EstimateTextWidth(text);
    FitWholeColumn(form.grid, 1, 100, 0);
    EXPECT_EQ(form.grid.ColumnWidth(1), needed);
    FitWholeColumn(form.grid, 1, needed + 10, 0);
    EXPECT_EQ(form.grid.ColumnWidth(1), needed + 10);
    FitWholeColumn(form.grid, 1, 100, needed - 10);
    EXPECT_EQ(form.grid.ColumnWidth(1), needed - 10);
    FitWholeColumn(form.grid, 0, 100, 0);
    EXPECT_EQ(form.grid.ColumnWidth(0), controls::EstimateTextWidth("编号")) << "as its title";
}

}  // namespace
}  // namespace kelvane::ui
