// Items are chosen and amounts of detail lines come of them, however the operator types.
#include "tests/unit/ui/entry_list_fixture.h"

namespace kelvane::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using CellGuardsTest = EntryListTest;

TEST_F(CellGuardsTest, AnItemIsNotTyped) {
    Open();
    Go(1, kItemColumn);
    for (const char* text : {"P02", ""}) {
        EXPECT_EQ(Type(text), controls::GridAnswer::Accept);
        EXPECT_EQ(List().Text(1, kItemColumn), "P01");
    }
    EXPECT_EQ(windows.beeps, 2);
    EXPECT_FALSE(List().RowTouched());
}

TEST_F(CellGuardsTest, AnItemIsChosenInAnOpenCellToo) {
    Open();
    Go(1, kItemColumn);
    Choose({"P02", "二号楼", "二标段", ""});
    List().BeginEdit();
    List().ReplaceEditText("P03");
    ASSERT_TRUE(List().PressReference());
    EXPECT_FALSE(List().IsEditing());
    EXPECT_EQ(List().Text(1, kItemColumn), "P02");
    EXPECT_EQ(List().Text(1, kItemNameColumn), "二号楼");
}

TEST_F(CellGuardsTest, ARefusedItemIsNotTypedOverButGivenUp) {
    Open();
    Go(1, kItemColumn);
    Choose({"P09", "九号楼", "", ""});
    List().PressReference();
    ASSERT_TRUE(List().IsEditing());
    List().ReplaceEditText("P02");
    EXPECT_EQ(List().EditText(), "P09");
    List().CancelEdit();
    EXPECT_EQ(List().RowText(1),
              "\t2004-06-01\tD01\tP01\t一号楼\t一标段\t\t人工费\t人工\t1,234.50");
}

TEST_F(CellGuardsTest, AnAmountOfLinesIsNotTyped) {
    Open();
    Go(2, kAmountColumn);
    const std::string amount = List().Text(2, kAmountColumn);
    for (const char* text : {"010101", "", amount.c_str()}) {
        Type(text);
        EXPECT_EQ(List().Text(2, kAmountColumn), amount);
    }
    EXPECT_EQ(windows.beeps, 3);
    ASSERT_TRUE(Go(1, kDateColumn));
    EXPECT_THAT(Read("select mQC from PM_ItemQC where iEleVid = 2"), ElementsAre("350"));
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(CellGuardsTest, OtherCellsAreTyped) {
    Open();
    Go(1, kAmountColumn);
    Type("77");
    EXPECT_EQ(List().Text(1, kAmountColumn), "77");
    Go(2, kDigestColumn);
    Type("水泥");
    EXPECT_EQ(List().Text(2, kDigestColumn), "水泥");
    Go(2, kElementColumn);
    Type("人工费");
    Go(2, kAmountColumn);
    Type("5");
    EXPECT_EQ(List().Text(2, kAmountColumn), "5");
    EXPECT_EQ(windows.beeps, 0);
}

// The element says whether lines are kept; without one that is not known yet.
TEST_F(CellGuardsTest, AnAmountWithoutAnElementIsTyped) {
    Open();
    List().SetText(2, kElementColumn, "");
    List().SetRow(2);
    List().SetCol(kAmountColumn);
    bool ok = true;
    Form().CheckBeforeEntry(ok);
    EXPECT_FALSE(ok);
    Type("5");
    EXPECT_EQ(List().Text(2, kAmountColumn), "5");
    EXPECT_EQ(windows.beeps, 0);
    const std::string needsElement = "[提示信息|information] 请先输入项目要素，然后再输入期初值！";
    EXPECT_THAT(Messages(), ElementsAre(needsElement, needsElement));
}

}  // namespace
}  // namespace kelvane::ui
