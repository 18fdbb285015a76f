// What an operator who cannot see a window is told of its controls.
#include "controls/spoken.h"

#include <gtest/gtest.h>

#include "controls/edit_box.h"
#include "tests/unit/controls/grid_fixture.h"

namespace kelvane::controls {
namespace {

void Place(Control& control, int left, int top, int width) {
    control.SetLeft(left);
    control.SetTop(top);
    control.SetWidth(width);
    control.SetHeight(300);
}

class SpokenGridTest : public GridTest {
protected:
    SpokenGridTest() { grid.SetFormat("|<日期|<中心|<项目|>金额"); }
};

TEST_F(SpokenGridTest, ACellIsItsTextItsTitleAndItsPlaceBelowAndBesideTheTitles) {
    const Spoken cell = SpokenOf(grid, 2, 3);
    EXPECT_EQ(cell.role, SpokenRole::Cell);
    EXPECT_EQ(NameAndText(cell), "项目 2c");
    EXPECT_EQ(StateAndPlace(cell), "第 2 行，第 3 列");
    EXPECT_TRUE(cell.hasList);
    EXPECT_FALSE(SpokenOf(grid, 2, 1).hasList);
}

TEST_F(SpokenGridTest, ALockedCellSaysSoAndOffersNoList) {
    Lock(2, 3);
    EXPECT_EQ(StateAndPlace(SpokenOf(grid, 2, 3)), "锁定，第 2 行，第 3 列");
    EXPECT_FALSE(SpokenOf(grid, 2, 3).hasList);
    EXPECT_EQ(StateAndPlace(SpokenOf(grid, 2, 4)), "第 2 行，第 4 列");
    grid.SetReadOnly(true);
    EXPECT_EQ(StateAndPlace(SpokenOf(grid, 2, 4)), "锁定，第 2 行，第 4 列");
}

TEST_F(SpokenGridTest, ACellThatIsMarkedAsWrongSaysSo) {
    grid.MarkFault(2, 3, true);
    EXPECT_EQ(StateAndPlace(SpokenOf(grid, 2, 3)), "有错，第 2 行，第 3 列");
    EXPECT_EQ(StateAndPlace(SpokenOf(grid, 2, 4)), "第 2 行，第 4 列");
}

TEST_F(SpokenGridTest, AGridIsCalledAsItsWindowUnlessItHasANameOfItsOwn) {
    form.SetCaption("期初");
    EXPECT_EQ(SpokenOf(grid).name, "期初");
    grid.SetSpokenName("明细");
    EXPECT_EQ(SpokenOf(grid).name, "明细");
}

TEST_F(SpokenGridTest, TitlesAreNoCells) {
    EXPECT_EQ(SpokenOf(grid, 0, 3).role, SpokenRole::ColumnTitle);
    EXPECT_EQ(NameAndText(SpokenOf(grid, 0, 3)), "项目");
    EXPECT_EQ(StateAndPlace(SpokenOf(grid, 0, 3)), "");
    EXPECT_EQ(SpokenOf(grid, 2, 0).role, SpokenRole::RowTitle);
    EXPECT_EQ(StateAndPlace(SpokenOf(grid, 2, 0)), "锁定，第 2 行");
}

TEST_F(SpokenGridTest, AColumnWithoutWidthIsNotShownAndDoesNotCount) {
    EXPECT_TRUE(SpokenOf(grid, 2, 3).shown);
    grid.SetColumnWidth(3, 0);
    EXPECT_FALSE(SpokenOf(grid, 2, 3).shown);
    EXPECT_EQ(StateAndPlace(SpokenOf(grid, 2, 4)), "第 2 行，第 3 列");
}

TEST_F(SpokenGridTest, ACellThatIsNotThereIsRefused) {
    EXPECT_THROW(SpokenOf(grid, 9, 1), std::out_of_range);
    EXPECT_THROW(SpokenOf(grid, 1, 9), std::out_of_range);
}

TEST_F(SpokenGridTest, AListToChooseFromSaysWholeRows) {
    grid.SetTakesFocus(false);
    grid.SetReadOnly(true);
    EXPECT_EQ(SpokenOf(grid, 2, 3).text, "2c");
    EXPECT_EQ(NameAndText(SpokenOf(grid, 2, 3)), " 2a 2b 2c 2d");
    EXPECT_EQ(StateAndPlace(SpokenOf(grid, 2, 3)), "第 2 行");
}

TEST_F(SpokenGridTest, TheGridIsCalledAsItsWindow) {
    form.SetCaption("项目期初录入");
    EXPECT_EQ(SpokenOf(grid).name, "项目期初录入");
    EXPECT_EQ(SpokenOf(grid).role, SpokenRole::Table);
}

TEST(SpokenTest, AButtonIsCalledByItsCaptionOrElseByItsSpokenName) {
    Form form("Form");
    Button button(form, "Button");
    button.SetSpokenName("参照");
    EXPECT_EQ(SpokenOf(button).name, "参照");
    button.SetCaption("确定");
    button.SetEnabled(false);
    EXPECT_EQ(SpokenOf(button).name, "确定");
    EXPECT_FALSE(SpokenOf(button).enabled);
}

TEST(SpokenTest, ToolbarItemsAreButtonsAndSeparators) {
    ToolbarStyleControl::Item add;
    add.caption = "增加";
    add.enabled = false;
    ToolbarStyleControl::Item line;
    line.separator = true;
    EXPECT_EQ(SpokenOf(add).role, SpokenRole::Button);
    EXPECT_EQ(SpokenOf(add).name, "增加");
    EXPECT_FALSE(SpokenOf(add).enabled);
    EXPECT_EQ(SpokenOf(line).role, SpokenRole::Separator);
}

TEST(SpokenTest, AFieldIsCalledByTheLabelBesideItOrElseAboveIt) {
    Form form("Form");
    Label far(form, "far");
    Label beside(form, "beside");
    Label above(form, "above");
    EditBox field(form, "field");
    Place(far, 0, 1000, 400);
    Place(beside, 500, 950, 400);
    Place(above, 1000, 500, 400);
    Place(field, 1000, 1000, 2000);
    far.SetCaption("项目");
    beside.SetCaption("编号：");
    above.SetCaption("上面");
    EXPECT_EQ(LabelOf(field), "编号");
    beside.SetVisible(false);
    EXPECT_EQ(LabelOf(field), "项目");
    far.SetCaption("");
    EXPECT_EQ(LabelOf(field), "上面");
    above.SetTitle(true);
    EXPECT_EQ(LabelOf(field), "");
    field.SetSpokenName("查找");
    EXPECT_EQ(LabelOf(field), "查找");
}

}  // namespace
}  // namespace kelvane::controls
