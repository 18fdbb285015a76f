// Sorting, filtering and searching the entry list.
#include "tests/unit/ui/entry_list_fixture.h"
#include "ui/entry_list/column_values.h"
#include "ui/find/find_dialog.h"

namespace kelvane::ui {
namespace {

using platform::kCtrl;
using platform::Key;
using platform::KeyOfCharacter;
using platform::kShift;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ListActionsTest : public EntryListTest {
protected:
    bool Press(char32_t letter, int shift = kCtrl) {
        Key key = KeyOfCharacter(letter);
        return Form().OfferKeyDown(key, shift);
    }
    std::vector<int> Entries() {
        std::vector<int> entries;
        for (int row = 1; row < List().Rows(); ++row) entries.push_back(List().RowData(row));
        return entries;
    }
    controls::EditBox& Field() {
        return dynamic_cast<controls::EditBox&>(*Form().Find("txtSearch"));
    }
};

TEST_F(ListActionsTest, AViewAsksTheAccountNothing) {
    Open();
    List().HeaderClick(kAmountColumn);
    EXPECT_THAT(Entries(), ElementsAre(3, 2, 1));
    Go(1, kElementColumn);
    log.statements.clear();
    EXPECT_TRUE(Press(U'L'));
    EXPECT_THAT(Entries(), ElementsAre(3));
    EXPECT_TRUE(List().NavigationKey(Key::Escape, 0));
    EXPECT_THAT(Entries(), ElementsAre(1, 2, 3));
    EXPECT_THAT(log.statements, IsEmpty());
}

TEST_F(ListActionsTest, TheFixedColumnHasNoOrder) {
    Open();
    List().HeaderClick(0);
    EXPECT_EQ(List().SortColumn(), -1);
}

TEST_F(ListActionsTest, ARowThatWasNeverSavedIsNotFilteredOut) {
    Open();
    Go(2, kElementColumn);
    Form().FilterByCurrentCell();
    Form().AddEntryRow();
    List().SetRow(1);
    Form().FilterByCurrentCell();
    EXPECT_THAT(Entries(), ElementsAre(2, 0));
    EXPECT_THAT(Form().Figures(), HasSubstr("筛选 2/4 行"));
}

TEST_F(ListActionsTest, AnOpenCellKeepsTheKeys) {
    Open();
    Go(1, kDigestColumn);
    List().BeginEdit();
    for (const char32_t letter : {U'F', U'G', U'L'}) EXPECT_FALSE(Press(letter));
    EXPECT_FALSE(Press(U'L', kCtrl | kShift));
    EXPECT_FALSE(Press(U'G', kCtrl | kShift));
}

TEST_F(ListActionsTest, TheKeysActWhereTheItemTakesNone) {
    Open();
    Go(1, kItemColumn);
    EXPECT_TRUE(Press(U'F'));
    EXPECT_EQ(Form().ActiveControl(), &Field());
}

TEST_F(ListActionsTest, ASecondOpeningBeginsWithoutAView) {
    Open();
    List().HeaderClick(kAmountColumn);
    Go(1, kElementColumn);
    Form().FilterByCurrentCell();
    Form().SearchTyping();
    Form().Unload();
    Open();
    EXPECT_THAT(Entries(), ElementsAre(1, 2, 3));
    EXPECT_EQ(List().SortColumn(), -1);
    EXPECT_EQ(Form().Hint(), "");
    EXPECT_FALSE(Field().Visible());
}

TEST_F(ListActionsTest, AValueIsChosenWithItsCount) {
    Open();
    Go(1, kCenterColumn);
    windows.acts.emplace_back([](controls::Form& form) {
        auto& values = dynamic_cast<frmColumnValues&>(form);
        EXPECT_THAT(values.Titles(), ElementsAre("责任中心", "行数"));
        EXPECT_THAT(values.ShownRows(), ElementsAre(ElementsAre("D01", "3")));
        values.cmdCancel.Press();
    });
    Form().FilterByList();
    EXPECT_FALSE(List().IsFiltered());
    Go(1, kDigestColumn);
    windows.acts.emplace_back([](controls::Form& form) {
        auto& values = dynamic_cast<frmColumnValues&>(form);
        EXPECT_EQ(values.GridValues.Text(values.GridValues.Row(), 0), "人工");
        values.txtSearch.SetText("gc");
        EXPECT_THAT(values.ShownRows(), ElementsAre(ElementsAre("钢材", "1")));
        values.txtSearch.SetText("zz");
        EXPECT_THAT(values.ShownRows(), IsEmpty());
        EXPECT_FALSE(values.cmdOK.Enabled());
        values.txtSearch.SetText("g");
        Key down = Key::Down;
        EXPECT_TRUE(values.OfferKeyDown(down, 0));
        EXPECT_EQ(values.GridValues.Row(), 2);
        values.cmdOK.Press();
    });
    Form().FilterByList();
    EXPECT_THAT(Entries(), ElementsAre(2));
}

TEST_F(ListActionsTest, BlankCellsHaveAValueToo) {
    Open();
    List().SetText(2, kDigestColumn, " ");
    Go(1, kDigestColumn);
    windows.acts.emplace_back([](controls::Form& form) {
        auto& values = dynamic_cast<frmColumnValues&>(form);
        EXPECT_THAT(values.ShownRows().back(), ElementsAre("（空白）", "1"));
        values.Choose(values.ShownRows().size() - 1);
    });
    Form().FilterByList();
    EXPECT_THAT(Entries(), ElementsAre(2));
    EXPECT_THAT(Form().Hint(), HasSubstr("摘要=（空白）"));
}

TEST_F(ListActionsTest, FindingOnAsksFirstWhatToFind) {
    Open();
    Form().FindItemCode.clear();
    windows.acts.emplace_back([](controls::Form& form) {
        auto& dialog = dynamic_cast<frmFind&>(form);
        dialog.TxtCode.SetText("P02");
        dialog.CmdOK.Press();
    });
    EXPECT_TRUE(Press(U'G'));
    EXPECT_EQ(List().Row(), 2);
    EXPECT_EQ(List().SelectionEnd(), kAmountColumn);
    EXPECT_TRUE(Press(U'G'));
    EXPECT_EQ(List().Row(), 2);
    EXPECT_EQ(Form().Hint(), "只有这一行符合条件。");
    Go(2, kDigestColumn);
    EXPECT_EQ(Form().Hint(), "");
    Form().FindItemCode = "P99";
    EXPECT_TRUE(Press(U'G', kCtrl | kShift));
    EXPECT_THAT(Messages(), ElementsAre(HasSubstr("没有找到符合条件的数据")));
    Form().FindItemCode.clear();
}

TEST_F(ListActionsTest, WhatIsOnlyShownScrollsBack) {
    Open();
    List().SetHeight(1000);
    for (int row = 0; row < 40; ++row) {
        List().SetRowData(List().AddItem("\t2004-06-01\tD01\tP01\t\t\t\t人工费\t第" +
                                         std::to_string(row) + "笔\t1"),
                          100 + row);
    }
    Go(1, kDigestColumn);
    Form().SearchTyping();
    Field().SetText("d39b");
    EXPECT_EQ(List().FoundRow(), 43);
    EXPECT_EQ(List().FoundCol(), kDigestColumn);
    EXPECT_EQ(List().Row(), 1);
    EXPECT_TRUE(List().IsRowShown(43));
    Field().SetText("d39bx");
    EXPECT_EQ(List().FoundRow(), 0);
    EXPECT_EQ(List().TopRow(), 1);
    Field().SetText("d38b");
    EXPECT_TRUE(List().IsRowShown(42));
    dynamic_cast<controls::Button&>(*Form().Find("cmdCloseSearch")).Press();
    EXPECT_EQ(List().TopRow(), 1);
    EXPECT_EQ(List().FoundRow(), 0);
    EXPECT_EQ(Form().ActiveControl(), &List());
}

TEST_F(ListActionsTest, ACommandEndsASearchThatIsTyped) {
    Open();
    Form().SearchTyping();
    Form().Toolbar1_ButtonClick(*Form().Toolbar1.Button("Add"));
    EXPECT_EQ(Form().ActiveControl(), &List());
    EXPECT_FALSE(Field().Visible());
    EXPECT_EQ(List().Row(), 4);
}

TEST_F(ListActionsTest, AnEmptySearchGoesNowhere) {
    Open();
    Go(2, kDigestColumn);
    Form().SearchTyping();
    EXPECT_TRUE(Press(U'G'));
    EXPECT_EQ(List().Row(), 2);
    EXPECT_EQ(List().FoundRow(), 0);
}

}  // namespace
}  // namespace kelvane::ui
