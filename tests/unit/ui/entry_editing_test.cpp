// The grid's handlers called as the grid calls them, and the checks of single cells.
#include "tests/support/memory_record_set.h"
#include "tests/unit/ui/entry_list_fixture.h"
#include "ui/detail_editor/detail_editor.h"

namespace kelvane::ui {
namespace {

using controls::GridAnswer;
using platform::StatementText;
using testing::ElementsAre;
using testing::IsEmpty;

class EntryEditingTest : public EntryListTest {
protected:
    void KeepLines() {
        Form().mDetailSql = StatementText("delete from PM_ItemQCsub where iEleVid=0");
        Form().mWaiting.texts = {"M01\t螺纹钢"};
    }
    bool LinesAreKept() { return !Form().mDetailSql.IsEmpty() && !Form().mWaiting.texts.empty(); }
    std::string Reference(int row, int col) {
        std::string value = List().Text(row, col);
        Form().GridPeriodItem_CellReference(value, row, col);
        return value;
    }
};

// Leaving a row.

TEST_F(EntryEditingTest, WhileTheDetailEditorIsOpenLeavingARowTouchesNothing) {
    Open();
    List().SetText(1, kDigestColumn, "");
    KeepLines();
    Form().mDetailOpen = true;
    GridAnswer answer = GridAnswer::Undecided;
    int col = 5;
    Form().GridPeriodItem_RowValidate(answer, 1, col);
    Form().mDetailOpen = false;
    EXPECT_EQ(answer, GridAnswer::Undecided);
    EXPECT_EQ(col, 5);
    EXPECT_TRUE(LinesAreKept());
    EXPECT_THAT(log.Lines(), IsEmpty());
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(EntryEditingTest, TheFirstRefusedColumnIsWhereToReturn) {
    Open();
    Go(1, kDateColumn);
    List().SetText(1, kElementColumn, "");
    List().SetText(1, kDigestColumn, "");
    GridAnswer answer = GridAnswer::Undecided;
    int col = kDateColumn;
    Form().GridPeriodItem_RowValidate(answer, 1, col);
    EXPECT_EQ(answer, GridAnswer::Refuse);
    EXPECT_EQ(col, kElementColumn);
    EXPECT_THAT(Messages(), ElementsAre("[提示信息|information] 项目要素不能为空"));
}

TEST_F(EntryEditingTest, ASavedRowLetsGoOfTheLinesKeptForIt) {
    Open();
    Go(1, kDateColumn);
    KeepLines();
    GridAnswer answer = GridAnswer::Undecided;
    int col = kDateColumn;
    Form().GridPeriodItem_RowValidate(answer, 1, col);
    EXPECT_EQ(answer, GridAnswer::Accept);
    EXPECT_EQ(col, kDateColumn);
    EXPECT_TRUE(Form().mDetailSql.IsEmpty());
    EXPECT_THAT(Form().mWaiting.texts, IsEmpty());
}

TEST_F(EntryEditingTest, ABudgetThatIsExceededKeepsTheRowAndItsLines) {
    Run("insert into pm_BudgetVer values(1,1)");
    Run("insert into pm_budget values(1,'P01','E01',1,1000)");
    Open();
    Go(1, kDateColumn);
    KeepLines();
    EXPECT_FALSE(Go(2, kDateColumn));
    EXPECT_EQ(List().Row(), 1);
    EXPECT_TRUE(LinesAreKept());
    EXPECT_THAT(Messages(),
                ElementsAre("[项目管理|information] 金额超出项目预算中的项目期初发生额"));
}

TEST_F(EntryEditingTest, ABudgetThatCannotBeReadKeepsTheRow) {
    Open();
    Go(1, kDateColumn);
    log.failing = "sum(mQc) as sumQC";
    Run("insert into pm_BudgetVer values(1,1)");
    Run("insert into pm_budget values(1,'P01','E01',1,9999)");
    EXPECT_FALSE(Go(2, kDateColumn));
    EXPECT_EQ(List().Row(), 1);
    EXPECT_EQ(Form().Notice(), "检查并保存当前行时出错，当前行没有保存。");
    log.failing = "from pm_budget where";
    EXPECT_FALSE(Go(2, kDateColumn));
    EXPECT_EQ(Form().Notice(), "读取项目预算时出错，没有保存。");
    EXPECT_THAT(Messages(), ElementsAre("[项目管理|information] 模拟的数据库错误"));
    log.failing.clear();
    EXPECT_TRUE(Go(2, kDateColumn));
    EXPECT_EQ(Form().Notice(), "");
}

TEST_F(EntryEditingTest, AnAmountTooLargeForTheAccountKeepsTheRow) {
    Open();
    Go(1, kAmountColumn);
    Type("999999999999999999999");
    EXPECT_FALSE(Go(2, kDateColumn));
    EXPECT_EQ(Form().Notice(),
              "检查并保存当前行时出错，当前行没有保存。数字超出了数据库能保存的范围。");
    EXPECT_THAT(Read("select mQC from PM_ItemQC where iEleVid = 1"), ElementsAre("1234.5"));
    Type("2");
    EXPECT_TRUE(Go(2, kDateColumn));
    EXPECT_EQ(Form().Notice(), "");
}

// Single cells.

TEST_F(EntryEditingTest, AChangedCenterEmptiesWhatDependsOnIt) {
    Open();
    Go(1, kCenterColumn);
    EXPECT_EQ(Type("D02"), GridAnswer::Accept);
    EXPECT_EQ(List().RowText(1), "\t2004-06-01\tD02\t\t\t\t\t\t\t");
    EXPECT_EQ(data::gRefCenterCode, "D02");
}

TEST_F(EntryEditingTest, TheSameCenterTypedAgainEmptiesNothing) {
    Open();
    Go(1, kCenterColumn);
    EXPECT_EQ(Type(" D01 "), GridAnswer::Accept);
    EXPECT_EQ(List().RowText(1),
              "\t2004-06-01\tD01\tP01\t一号楼\t一标段\t\t人工费\t人工\t1,234.50");
}

TEST_F(EntryEditingTest, AnUnchangedCellIsCheckedWithoutConsequences) {
    Open();
    std::string text;
    EXPECT_TRUE(Form().ValidateCell(2, kCenterColumn, false, text));
    EXPECT_TRUE(Form().ValidateCell(2, kElementColumn, false, text));
    EXPECT_EQ(text, "材料费");
    EXPECT_EQ(List().Text(2, kAmountColumn), "350.00");
    EXPECT_THAT(Read("select count(*) from PM_ItemQCsub"), ElementsAre("2"));
}

TEST_F(EntryEditingTest, LockedAndUnknownColumnsAreAcceptedTrimmed) {
    Open();
    for (const int col : {0, 4, 5, 6}) {
        List().SetText(1, col, " x ");
        std::string text;
        EXPECT_TRUE(Form().ValidateCell(1, col, true, text));
        EXPECT_EQ(text, "x");
        EXPECT_EQ(List().Text(1, col), "x");
    }
    EXPECT_THAT(log.Lines(), IsEmpty());
}

TEST_F(EntryEditingTest, AnElementIsChangedWithItsLines) {
    Open();
    Go(2, kElementColumn);
    KeepLines();
    List().BeginEdit();
    log.statements.clear();
    EXPECT_EQ(Type("机械费"), GridAnswer::Accept);
    EXPECT_EQ(List().Text(2, kAmountColumn), "");
    EXPECT_TRUE(Form().mDetailSql.IsEmpty());
    EXPECT_THAT(Form().mWaiting.texts, IsEmpty());
    EXPECT_EQ(Form().ElementDetailFlag(2), 2);
    EXPECT_THAT(log.Lines(), ElementsAre("gConn: select cElementCode,iElementDetail from "
                                         "PM_ItemElement where cElementName ='机械费'",
                                         "gConn: delete from pm_itemQCSub where iEleVid=2"));
    EXPECT_THAT(Read("select count(*) from PM_ItemQCsub"), ElementsAre("0"));
}

TEST_F(EntryEditingTest, AnUnknownElementChangesNothing) {
    Open();
    Go(2, kElementColumn);
    KeepLines();
    EXPECT_EQ(Type("管理费"), GridAnswer::Refuse);
    EXPECT_TRUE(LinesAreKept());
    EXPECT_EQ(List().Text(2, kAmountColumn), "350.00");
    EXPECT_THAT(Read("select count(*) from PM_ItemQCsub"), ElementsAre("2"));
    EXPECT_THAT(Messages(),
                ElementsAre("[提示信息|information] 输入的项目要素不存在，须重新输入！"));
    List().CancelEdit();
}

TEST_F(EntryEditingTest, LinesThatCannotBeDeletedLeaveTheElementAsItWas) {
    Open();
    Go(2, kElementColumn);
    KeepLines();
    log.failing = "delete from pm_itemQCSub";
    log.losesConnection = true;
    EXPECT_EQ(Type("机械费"), GridAnswer::Refuse);
    EXPECT_EQ(Form().Notice(),
              "检查单元格内容时出错，该内容未被接受。数据库连接已断开，恢复后会自动重新连接。");
    List().CancelEdit();
    EXPECT_EQ(List().Text(2, kElementColumn), "材料费");
    EXPECT_EQ(List().Text(2, kAmountColumn), "350.00");
    EXPECT_EQ(Form().ElementDetailFlag(2), 1);
    EXPECT_TRUE(LinesAreKept());
    EXPECT_THAT(Read("select count(*) from PM_ItemQCsub"), ElementsAre("2"));
}

TEST_F(EntryEditingTest, ANewRowsElementKeepsItsFlagUntilItIsSaved) {
    Open();
    Form().AddEntryRow();
    const int row = List().Rows() - 1;
    Go(row, kElementColumn);
    Type("机械费");
    EXPECT_EQ(Form().ElementDetailFlag(row), 2);
    EXPECT_EQ(log.Lines().back(),
              "gConn: select cElementCode,iElementDetail from PM_ItemElement where cElementName "
              "='机械费'");
}

TEST_F(EntryEditingTest, ABlankIsAnAmountOfZero) {
    Open();
    std::string text;
    List().SetText(1, kAmountColumn, " ");
    EXPECT_TRUE(Form().ValidateCell(1, kAmountColumn, false, text));
    EXPECT_EQ(text, "0.00");
    EXPECT_EQ(List().Text(1, kAmountColumn), "0.00");
    for (const char* refused : {"", "  ", "十", "1.2.3"}) {
        List().SetText(1, kAmountColumn, refused);
        EXPECT_FALSE(Form().ValidateCell(1, kAmountColumn, false, text)) << refused;
    }
    EXPECT_THAT(
        Messages(),
        ElementsAre("[提示信息|information] 期初不能为空", "[提示信息|information] 期初不能为空",
                    "[提示信息|information] 请输入数字", "[提示信息|information] 请输入数字"));
    List().SetText(1, kAmountColumn, " -1,234.567 ");
    EXPECT_TRUE(Form().ValidateCell(1, kAmountColumn, false, text));
    EXPECT_EQ(text, "-1,234.57");
}

TEST_F(EntryEditingTest, ACheckThatCouldNotBeMadeIsStillNamedWhenTheCellIsAccepted) {
    Open();
    std::string text;
    log.failing = "select iclose,denddate";
    EXPECT_TRUE(Form().ValidateCell(1, kItemColumn, true, text));
    EXPECT_EQ(Form().Notice(), "检查项目是否已结算时出错。");
    log.failing.clear();
    EXPECT_TRUE(Form().ValidateCell(1, kItemColumn, true, text));
    EXPECT_EQ(Form().Notice(), "");
}

TEST_F(EntryEditingTest, AuthorisationThatCannotBeReadRefuses) {
    Open();
    log.failing = "from PM_DutyCenter";
    std::string text;
    EXPECT_FALSE(Form().ValidateCell(1, kCenterColumn, true, text));
    EXPECT_EQ(Form().Notice(), "检查责任中心时出错。");
    EXPECT_THAT(Messages(), ElementsAre("[提示信息|information] "
                                        "此责任中心不存在或操作员没有权限，须重新输入！"));
}

// What is remembered while a cell is open.

TEST_F(EntryEditingTest, TheOpenCellsTextIsRemembered) {
    Open();
    Go(1, kDigestColumn);
    Form().GridPeriodItem_EditModeChange(true);
    EXPECT_TRUE(Form().mEditing);
    EXPECT_EQ(Form().mEditText, "人工");
    Form().GridPeriodItem_EditModeChange(false);
    EXPECT_FALSE(Form().mEditing);
    EXPECT_EQ(Form().mEditText, "");
}

TEST_F(EntryEditingTest, OnlyAnAmountTypedByHandDiscardsLines) {
    Open();
    KeepLines();
    for (int col = kDateColumn; col < kAmountColumn; ++col) {
        Form().GridPeriodItem_CellChanged(1, col);
    }
    EXPECT_TRUE(LinesAreKept());
    Form().GridPeriodItem_CellChanged(1, kAmountColumn);
    EXPECT_TRUE(Form().mDetailSql.IsEmpty());
    EXPECT_THAT(Form().mWaiting.texts, IsEmpty());
}

TEST_F(EntryEditingTest, AResetDiscardsTheLinesAlone) {
    Open();
    KeepLines();
    Form().GridPeriodItem_DetailReset();
    EXPECT_FALSE(Form().mDetailSql.IsEmpty());
    EXPECT_THAT(Form().mWaiting.texts, IsEmpty());
}

TEST_F(EntryEditingTest, TheAmountIsNotCheckedAsACell) {
    Open();
    GridAnswer answer = GridAnswer::Undecided;
    std::string text = "x";
    Form().GridPeriodItem_CellValidate(text, answer, 1, kAmountColumn);
    EXPECT_EQ(answer, GridAnswer::Undecided);
    EXPECT_EQ(text, "x");
    EXPECT_EQ(data::gRefCenterCode, "D01");
    EXPECT_THAT(Messages(), IsEmpty());
}

// The detail button.

TEST_F(EntryEditingTest, TheDetailButtonShowsOverLockedDetailAmountsAlone) {
    Open();
    struct Place {
        int row;
        int col;
        bool readOnly;
        bool shown;
    };
    for (const Place& place :
         {Place{3, kAmountColumn, false, true}, Place{3, kDigestColumn, false, false},
          Place{2, kAmountColumn, false, false}, Place{2, kAmountColumn, true, true},
          Place{1, kAmountColumn, true, false}}) {
        List().SetReadOnly(place.readOnly);
        List().SetRow(place.row);
        List().SetCol(place.col);
        Form().cmdRef.SetVisible(true);
        Form().GridPeriodItem_EnterCell();
        EXPECT_EQ(Form().cmdRef.Visible(), place.shown) << place.row << " " << place.col;
    }
    List().SetRow(0);
    Form().cmdRef.SetVisible(true);
    Form().GridPeriodItem_EnterCell();
    EXPECT_FALSE(Form().cmdRef.Visible());
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(EntryEditingTest, AnAmountWithoutAnElementSendsToTheElement) {
    Open();
    Form().AddEntryRow();
    const int row = List().Rows() - 1;
    Go(row, kAmountColumn);
    EXPECT_EQ(List().Col(), kElementColumn);
    EXPECT_THAT(Messages(), ElementsAre("[项目管理|information] 请先填充要素"));
}

TEST_F(EntryEditingTest, ScrollingHidesTheDetailButton) {
    Open();
    Go(3, kAmountColumn);
    ASSERT_TRUE(Form().cmdRef.Visible());
    Form().GridPeriodItem_ViewChange();
    EXPECT_FALSE(Form().cmdRef.Visible());
}

TEST_F(EntryEditingTest, AHiddenDetailButtonGivesTheFocusBack) {
    Open();
    Go(3, kAmountColumn);
    Form().cmdRef.SetFocus();
    List().SetTopRow(2);
    EXPECT_FALSE(Form().cmdRef.Visible());
    EXPECT_EQ(Form().ActiveControl(), &List());
}

// Reference buttons.

TEST_F(EntryEditingTest, AGivenUpCenterEmptiesTheValueAGivenUpElementDoesNot) {
    Open();
    EXPECT_EQ(Reference(1, kCenterColumn), "");
    EXPECT_EQ(Reference(1, kElementColumn), "人工费");
    EXPECT_EQ(Reference(1, kItemColumn), "");
    EXPECT_TRUE(data::gRefByCenter);
    EXPECT_EQ(data::gRefCenterCode, "D01");
}

TEST_F(EntryEditingTest, AnItemWithoutACenterOpensNoList) {
    Open();
    List().SetText(1, kCenterColumn, "  ");
    EXPECT_EQ(Reference(1, kItemColumn), "P01");
    EXPECT_EQ(references.created, 0);
    EXPECT_THAT(Messages(), ElementsAre("[提示信息|information] 责任中心不能为空！"));
}

TEST_F(EntryEditingTest, TheItemListHasAsManyColumnsAsThereAreKeywords) {
    Open();
    Choose({"P02", "二号楼", "甲", "乙"});
    const std::string where =
        " from pm_dutycentersub a,fitemss97 b where ccentercode='D01' and "
        "a.citemcode=b.citemcode order by a.citemcode]";
    data::gItemKeyField2 = "楼号";
    std::vector<std::string> rows;
    for (const auto count : {std::int16_t{0}, std::int16_t{1}, std::int16_t{2}, std::int16_t{3}}) {
        data::gItemKeyCount = count;
        for (const int col : {4, 5, 6}) List().SetText(1, col, "");
        EXPECT_EQ(Form().PickItemWithKeywords("D01", 1, kItemColumn), "P02");
        rows.push_back(List().Text(1, 4) + "|" + List().Text(1, 5) + "|" + List().Text(1, 6));
    }
    EXPECT_THAT(rows, ElementsAre("二号楼||", "二号楼|甲|", "二号楼|甲|乙", "二号楼|甲|"));
    EXPECT_THAT(
        references.calls,
        ElementsAre("[on connection][select a.citemcode,b.citemname" + where +
                        "[项目编码,项目名称][2500,3000]",
                    "[on connection][select a.citemcode,b.citemname,ckeyword1" + where +
                        "[项目编码,项目名称,标段(关键字)][2000,2500,2000]",
                    "[on connection][select a.citemcode,b.citemname,ckeyword1,ckeyword2" + where +
                        "[项目编码,项目名称,标段(关键字),楼号(关键字)]"
                        "[1500,2500,1500,1500]",
                    "[on connection][select a.citemcode,b.citemname,ckeyword1" + where +
                        "[项目编码,项目名称,标段(关键字)][]"));
}

TEST_F(EntryEditingTest, AnItemThatIsGivenUpAgainTakesItsNameAndKeywordAlong) {
    Open();
    Go(1, kItemColumn);
    List().BeginEdit();
    Choose({"P02", "二号楼", "二标段", ""});
    // The refused check leaves the cell open with the chosen item.
    log.failing = "select PM_DutycenterSub.cItemCode";
    List().PressReference();
    log.failing.clear();
    ASSERT_TRUE(List().IsEditing());
    EXPECT_EQ(List().Text(1, kItemNameColumn), "二号楼");
    List().CancelEdit();
    EXPECT_EQ(List().RowText(1),
              "\t2004-06-01\tD01\tP01\t一号楼\t一标段\t\t人工费\t人工\t1,234.50");
}

TEST_F(EntryEditingTest, KeywordListsReadTheirOwnStatements) {
    Open();
    data::gItemKeyCount = 2;
    controls::GridDropList list;
    for (int col = kDateColumn; col <= kAmountColumn; ++col) {
        Form().GridPeriodItem_ComboDropDown(1, col, list);
    }
    EXPECT_THAT(log.Lines(),
                ElementsAre("gConn: select cKeyWord1 from PM_DutycenterSub where cCenterCode = "
                            "'D01' and cItemCode = 'P01'",
                            "gConn: select  cKeyWord2 from PM_DutycenterSub where cCenterCode = "
                            "'D01' and  cItemCode = 'P01'"));
    // Null is an empty item.
    EXPECT_THAT(list.Items(), ElementsAre("一标段", ""));
    data::gItemKeyCount = 1;
    Form().GridPeriodItem_ComboDropDown(1, kKey2Column, list);
    data::gItemKeyCount = 0;
    Form().GridPeriodItem_ComboDropDown(1, kKey1Column, list);
    EXPECT_EQ(log.statements.size(), 2U);
}

TEST_F(EntryEditingTest, AKeywordListThatCannotBeReadIsNamed) {
    Open();
    Go(1, kKey1Column);
    log.failing = "cKeyWord1";
    EXPECT_THAT(List().OpenList(), IsEmpty());
    EXPECT_EQ(Form().Notice(), "读取关键字列表时出错。");
}

// Checks that precede an edit.

TEST_F(EntryEditingTest, NothingPrecedesTheEditOfOtherCells) {
    Open();
    for (const int col : {0, 1, 4, 5, 6, 8}) {
        List().SetRow(1);
        List().SetCol(col);
        bool ok = false;
        Form().CheckBeforeEntry(ok);
        EXPECT_TRUE(ok) << col;
    }
    EXPECT_THAT(log.Lines(), IsEmpty());
}

TEST_F(EntryEditingTest, ACheckThatFailsIsRefusedWithoutAMessage) {
    Open();
    List().SetRow(1);
    List().SetCol(kCenterColumn);
    log.failing = "select * from PM_DutyCenter";
    bool ok = true;
    Form().CheckBeforeEntry(ok);
    EXPECT_FALSE(ok);
    EXPECT_EQ(Form().Notice(), "录入前检查时出错。");
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_THAT(log.Lines(), ElementsAre("gConn: select * from PM_DutyCenter"));
}

TEST_F(EntryEditingTest, TheLowerLineNamesTheCentreAndReadsTheNamesOnce) {
    const controls::Form& form = Open();
    Go(1, kCenterColumn);
    EXPECT_EQ(form.Hint(), "工程一部");
    EXPECT_THAT(log.Lines(),
                testing::Contains("gEnv: select cCenterCode,cCenterName from PM_DutyCenter"));
    log.statements.clear();
    Type("D02");
    log.statements.clear();
    EXPECT_EQ(form.Hint(), "工程二部");
    EXPECT_THAT(log.Lines(), testing::IsEmpty());
}

TEST_F(EntryEditingTest, NamesThatCannotBeReadAreToldToNobody) {
    const controls::Form& form = Open();
    log.failing = "cCenterName";
    Go(1, kCenterColumn);
    EXPECT_EQ(form.Hint(), "");
    EXPECT_EQ(form.Notice(), "");
}

}  // namespace
}  // namespace kelvane::ui
