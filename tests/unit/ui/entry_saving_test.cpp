// Saving and deleting when the account does not do as it is asked: nothing half written, nothing
// typed lost, and a line that says what happened.
#include "tests/unit/ui/entry_list_fixture.h"
#include "ui/detail_editor/detail_editor.h"

namespace kelvane::ui {
namespace {

using platform::MessageAnswer;
using platform::StatementText;
using support::StatementLog;
using testing::ElementsAre;
using testing::IsEmpty;

class EntrySavingTest : public EntryListTest {
protected:
    std::vector<std::string> Entries() {
        return Read("select cDigest from PM_ItemQC order by iEleVid");
    }
    StatementText LinesScript() {
        StatementText script("delete from PM_ItemQCsub where iEleVid=");
        script.EntryPlaceholder() << " insert into PM_ItemQCsub(iEleVid,cCodeMx,mQC) values(";
        script.EntryPlaceholder() << ",'M09',1)";
        return script;
    }
    void ChangeDigest(int row, std::string_view digest) {
        Go(row, kDigestColumn);
        Type(digest);
    }
};

TEST_F(EntrySavingTest, ASavedEntryIsReReadUnderItsLockAndUpdated) {
    Open();
    ChangeDigest(2, "槽钢");
    Form().mDetailSql = LinesScript();
    log.statements.clear();
    EXPECT_TRUE(Go(1, kDateColumn));
    std::vector<std::string> lines = log.Lines();
    const auto begin = std::find(lines.begin(), lines.end(), "gConn: begin");
    lines.erase(lines.begin(), begin);
    EXPECT_THAT(lines,
                ElementsAre("gConn: begin",
                            "gConn: select * from PM_ItemQC with (HOLDLOCK) where iEleVid=2",
                            "gEnv: select cElementCode from PM_ItemElement where cElementName = "
                            "'材料费'",
                            "gConn: delete from PM_ItemQCsub where iEleVid=2 insert into "
                            "PM_ItemQCsub(iEleVid,cCodeMx,mQC) values(2,'M09',1)",
                            "gConn: commit"));
    EXPECT_THAT(Entries(), ElementsAre("人工", "槽钢", "吊车"));
    EXPECT_THAT(Read("select cCodeMx from PM_ItemQCsub"), ElementsAre("M09"));
    EXPECT_TRUE(Form().mDetailSql.IsEmpty());
}

TEST_F(EntrySavingTest, ANewEntryTakesItsNumberAndItsLinesWithIt) {
    Open();
    const int row = AddFilledRow("1,234.5");
    Form().mDetailSql = LinesScript();
    log.statements.clear();
    EXPECT_TRUE(Go(1, kDateColumn));
    std::vector<std::string> lines = log.Lines();
    const auto counter = std::find(lines.begin(), lines.end(),
                                   "gConn: select cValue from PM_SettingInf where "
                                   "cName='NumMax_EleQc'");
    lines.erase(lines.begin(), counter);
    EXPECT_THAT(
        lines,
        ElementsAre(
            "gConn: select cValue from PM_SettingInf where cName='NumMax_EleQc'",
            "gEnv: select cElementCode from PM_ItemElement where cElementName = '人工费'",
            "gConn: begin",
            "gConn: delete from PM_ItemQCsub where iEleVid=4 insert into "
            "PM_ItemQCsub(iEleVid,cCodeMx,mQC) values(4,'M09',1)",
            "gConn: insert into PM_ItemQC(dDate,cCenterCode,cItemCode,cKeyCode1,cKeyCode2,"
            "cElementCode,cDigest,mQC,iEleVid) values ( '2004-06-30','D01','P01','一标段','',"
            "'E01','新',1234.5,4) ",
            "gConn: commit"));
    EXPECT_EQ(List().RowData(row), 4);
    EXPECT_EQ(Form().ElementDetailFlag(row), 0);
    EXPECT_THAT(Read("select iEleVid from PM_ItemQCsub where cCodeMx = 'M09'"), ElementsAre("4"));
}

TEST_F(EntrySavingTest, TheFlagOfANewRowMovesToItsIdentity) {
    Open();
    const int row = AddFilledRow();
    Go(row, kElementColumn);
    Type("机械费");
    List().SetText(row, kAmountColumn, "8");
    EXPECT_TRUE(Go(1, kDateColumn));
    EXPECT_EQ(List().RowData(row), 4);
    EXPECT_EQ(Form().ElementDetailFlag(row), 2);
    // The next new row begins without one.
    Form().AddEntryRow();
    EXPECT_EQ(Form().ElementDetailFlag(row + 1), 0);
}

// The account is held by another operator.

TEST_F(EntrySavingTest, ABusyAccountKeepsTheRowAndTheNextTrySavesIt) {
    Open();
    ChangeDigest(1, "改");
    Form().mDetailSql = LinesScript();
    other->Begin();
    Run("update PM_ItemQC set cDigest = '他人' where iEleVid = 2");
    EXPECT_FALSE(Go(2, kDateColumn));
    other->RollBack();
    EXPECT_EQ(List().Row(), 1);
    EXPECT_EQ(List().Text(1, kDigestColumn), "改");
    EXPECT_TRUE(List().RowTouched());
    EXPECT_FALSE(Form().mDetailSql.IsEmpty());
    EXPECT_EQ(Form().Notice(), "数据库正被他人占用，当前行没有保存，请稍后再离开该行重试。");
    EXPECT_THAT(Entries(), ElementsAre("人工", "钢材", "吊车"));
    EXPECT_THAT(Messages(), IsEmpty());

    EXPECT_TRUE(Go(2, kDateColumn));
    EXPECT_EQ(Form().Notice(), "");
    EXPECT_THAT(Entries(), ElementsAre("改", "钢材", "吊车"));
}

TEST_F(EntrySavingTest, ABusyCounterIsAConflict) {
    Open();
    const int row = AddFilledRow();
    other->Begin();
    Run("update PM_SettingInf set cValue = '9' where cName = 'NumMax_EleQc'");
    EXPECT_FALSE(Go(1, kDateColumn));
    other->RollBack();
    EXPECT_EQ(List().Row(), row);
    EXPECT_EQ(List().RowData(row), 0);
    EXPECT_THAT(Messages(), ElementsAre("[提示信息|information] 出现冲突，请稍后再试！"));
    EXPECT_EQ(Form().Notice(),
              "取期初编号时出错，当前行没有保存。数据库正被他人占用，请稍后重试。");
    EXPECT_TRUE(Go(1, kDateColumn));
    EXPECT_EQ(List().RowData(row), 4);
    EXPECT_EQ(Form().Notice(), "");
}

TEST_F(EntrySavingTest, ABusyAccountKeepsARowThatIsToBeDeleted) {
    Open();
    Go(1, kDateColumn);
    other->Begin();
    Run("update PM_ItemQC set cDigest = '他人' where iEleVid = 2");
    windows.answers = {MessageAnswer::Yes};
    Form().DeleteRow();
    other->RollBack();
    EXPECT_EQ(List().Rows(), 4);
    EXPECT_EQ(Form().Notice(), "数据库正被他人占用，当前行没有删除，请稍后重试。");
    windows.answers = {MessageAnswer::Yes};
    Form().DeleteRow();
    EXPECT_EQ(List().Rows(), 3);
    EXPECT_EQ(Form().Notice(), "");
    EXPECT_THAT(Entries(), ElementsAre("钢材", "吊车"));
}

// Statements fail in the middle.

TEST_F(EntrySavingTest, AFailedScriptUndoesTheUpdate) {
    Open();
    ChangeDigest(2, "改");
    Form().mDetailSql = LinesScript();
    log.failing = "insert into PM_ItemQCsub";
    EXPECT_FALSE(Go(1, kDateColumn));
    EXPECT_EQ(log.Lines().back(), "gConn: roll back");
    EXPECT_THAT(Entries(), ElementsAre("人工", "钢材", "吊车"));
    EXPECT_THAT(Read("select count(*) from PM_ItemQCsub where iEleVid = 2"), ElementsAre("2"));
    EXPECT_FALSE(Form().mDetailSql.IsEmpty());
    EXPECT_EQ(Form().Notice(), "保存当前行时出错，没有写入数据库，录入的内容仍保留在表格中。");
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(EntrySavingTest, AFailedInsertUndoesTheScript) {
    Open();
    const int row = AddFilledRow();
    Form().mDetailSql = LinesScript();
    log.failing = "insert into PM_ItemQC(";
    EXPECT_FALSE(Go(1, kDateColumn));
    EXPECT_EQ(log.Lines().back(), "gConn: roll back");
    EXPECT_THAT(Read("select count(*) from PM_ItemQCsub where iEleVid = 4"), ElementsAre("0"));
    EXPECT_EQ(List().RowData(row), 0);
    EXPECT_TRUE(List().RowTouched());
    // The number is used up; the next try takes the one after.
    log.failing.clear();
    EXPECT_TRUE(Go(1, kDateColumn));
    EXPECT_EQ(List().RowData(row), 5);
    EXPECT_THAT(Read("select iEleVid from PM_ItemQCsub where cCodeMx = 'M09'"), ElementsAre("5"));
}

TEST_F(EntrySavingTest, AnElementThatIsGoneSavesNothing) {
    Open();
    ChangeDigest(1, "改");
    Run("delete from PM_ItemElement where cElementCode = 'E01'");
    platform::StatementText none;
    EXPECT_FALSE(Form().SaveRow(1, none));
    EXPECT_EQ(Form().Notice(), "保存当前行时出错，没有写入数据库，录入的内容仍保留在表格中。");
    EXPECT_THAT(Entries(), ElementsAre("人工", "钢材", "吊车"));
}

TEST_F(EntrySavingTest, AnEntryDeletedElsewhereIsNotWritten) {
    Open();
    ChangeDigest(1, "改");
    Run("delete from PM_ItemQC where iEleVid = 1");
    EXPECT_FALSE(Go(2, kDateColumn));
    EXPECT_EQ(log.Lines().back(), "gConn: roll back");
    EXPECT_THAT(Messages(), ElementsAre("[项目管理|information] 该行记录已经被他人删除"));
    EXPECT_EQ(List().Text(1, kDigestColumn), "改");
    // The transaction is over: what comes next can be written.
    windows.answers = {MessageAnswer::Yes};
    Form().DeleteRow();
    EXPECT_EQ(List().Rows(), 3);
    EXPECT_EQ(Form().Notice(), "");
}

TEST_F(EntrySavingTest, AFailedDeleteChangesNothing) {
    Open();
    Go(2, kDateColumn);
    log.failing = "delete from pm_itemQCSub";
    windows.answers = {MessageAnswer::Yes};
    Form().DeleteRow();
    EXPECT_EQ(log.Lines().back(), "gConn: roll back");
    EXPECT_THAT(Entries(), ElementsAre("人工", "钢材", "吊车"));
    EXPECT_EQ(List().Rows(), 4);
    EXPECT_EQ(Form().Notice(), "删除当前行时出错，数据库中的记录没有改变。");
}

TEST_F(EntrySavingTest, DeletingAsksWithNoPreselected) {
    Open();
    Go(2, kDateColumn);
    log.statements.clear();
    Form().DeleteRow();
    EXPECT_THAT(Messages(), ElementsAre("[删除确认|none] 是否删除当前行？ (yes/NO)"));
    EXPECT_THAT(log.Lines(), IsEmpty());
    windows.answers = {MessageAnswer::Yes};
    Form().mWaiting.texts = {"M01\t螺纹钢"};
    Form().mDetailSql = LinesScript();
    Form().DeleteRow();
    EXPECT_THAT(log.Lines(),
                ElementsAre("gConn: begin",
                            "gConn: delete from pm_itemQC where "
                            "iEleVid=2",
                            "gConn: delete from pm_itemQCSub where iEleVid=2", "gConn: commit"));
    EXPECT_TRUE(Form().mDetailSql.IsEmpty());
    EXPECT_THAT(Form().mWaiting.texts, IsEmpty());
    EXPECT_THAT(Read("select count(*) from PM_ItemQCsub"), ElementsAre("0"));
}

// The server is gone, and comes back.

TEST_F(EntrySavingTest, ALostConnectionKeepsWhatWasTypedAndTheNextTrySavesIt) {
    for (const char* place : {"select * from PM_ItemQC", "insert into PM_ItemQCsub"}) {
        Open();
        ChangeDigest(2, "改");
        Form().mDetailSql = LinesScript();
        log.failing = place;
        log.losesConnection = true;
        EXPECT_FALSE(Go(1, kDateColumn));
        EXPECT_EQ(Form().Notice(),
                  "保存当前行时出错，没有写入数据库，录入的内容仍保留在表格中。"
                  "数据库连接已断开，恢复后会自动重新连接。");
        EXPECT_EQ(List().Text(2, kDigestColumn), "改");
        EXPECT_TRUE(List().RowTouched());
        EXPECT_FALSE(Form().mDetailSql.IsEmpty());
        log.failing.clear();
        EXPECT_TRUE(Go(1, kDateColumn));
        EXPECT_EQ(Form().Notice(), "");
        EXPECT_THAT(Entries(), ElementsAre("人工", "改", "吊车"));
        Run("update PM_ItemQC set cDigest = '钢材' where iEleVid = 2");
        Form().Unload();
    }
}

TEST_F(EntrySavingTest, ALostConnectionKeepsANewRow) {
    Open();
    const int row = AddFilledRow();
    log.failing = "insert into PM_ItemQC(";
    log.losesConnection = true;
    EXPECT_FALSE(Go(1, kDateColumn));
    EXPECT_EQ(List().Row(), row);
    EXPECT_EQ(List().RowData(row), 0);
    EXPECT_THAT(Entries(), ElementsAre("人工", "钢材", "吊车"));
    log.failing.clear();
    EXPECT_TRUE(Go(1, kDateColumn));
    EXPECT_THAT(Entries(), ElementsAre("人工", "钢材", "吊车", "新"));
}

TEST_F(EntrySavingTest, ALostConnectionDeletesNothing) {
    Open();
    Go(1, kDateColumn);
    log.failing = "delete from pm_itemQCSub";
    log.losesConnection = true;
    windows.answers = {MessageAnswer::Yes};
    Form().DeleteRow();
    EXPECT_EQ(List().Rows(), 4);
    EXPECT_EQ(Form().Notice(),
              "删除当前行时出错，数据库中的记录没有改变。数据库连接已断开，恢复后会自动重新连接。");
    EXPECT_THAT(Entries(), ElementsAre("人工", "钢材", "吊车"));
    log.failing.clear();
    windows.answers = {MessageAnswer::Yes};
    Form().DeleteRow();
    EXPECT_EQ(List().Rows(), 3);
    EXPECT_EQ(Form().Notice(), "");
}

// The answer to a commit is lost.

constexpr const char* kSavedInDoubt =
    "保存当前行时没有收到数据库的答复，不能确定是否已经保存，请重新打开核对。";

TEST_F(EntrySavingTest, ANewEntryInDoubtIsNeverThereTwice) {
    Open();
    const int row = AddFilledRow();
    log.lostAnswer = StatementLog::LostAnswer::Saved;
    EXPECT_FALSE(Go(1, kDateColumn));
    EXPECT_EQ(Form().Notice(), kSavedInDoubt);
    EXPECT_EQ(List().Row(), row);
    log.lostAnswer = StatementLog::LostAnswer::None;
    EXPECT_TRUE(Go(1, kDateColumn));
    EXPECT_THAT(Entries(), ElementsAre("人工", "钢材", "吊车", "新"));
    EXPECT_EQ(Form().Notice(), "");
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(EntrySavingTest, ANewEntryInDoubtThatDidNotArriveIsEnteredAgainUnderItsIdentity) {
    Open();
    const int row = AddFilledRow();
    log.lostAnswer = StatementLog::LostAnswer::NotSaved;
    EXPECT_FALSE(Go(1, kDateColumn));
    EXPECT_EQ(Form().Notice(), kSavedInDoubt);
    const int identity = List().RowData(row);
    EXPECT_THAT(Entries(), ElementsAre("人工", "钢材", "吊车"));
    EXPECT_FALSE(Go(1, kDateColumn));
    log.lostAnswer = StatementLog::LostAnswer::None;
    EXPECT_TRUE(Go(1, kDateColumn));
    EXPECT_EQ(List().RowData(row), identity);
    EXPECT_THAT(Entries(), ElementsAre("人工", "钢材", "吊车", "新"));
    EXPECT_EQ(Form().Notice(), "");
    EXPECT_THAT(Messages(), IsEmpty());
    // Once it is there, it is an entry like the others.
    ChangeDigest(row, "改");
    Run("delete from PM_ItemQC where cDigest = '新'");
    EXPECT_FALSE(Go(1, kDateColumn));
    EXPECT_THAT(Messages(), ElementsAre("[项目管理|information] 该行记录已经被他人删除"));
}

TEST_F(EntrySavingTest, AChangeInDoubtCanBeSavedAgain) {
    for (const auto lost : {StatementLog::LostAnswer::Saved, StatementLog::LostAnswer::NotSaved}) {
        Open();
        ChangeDigest(2, "改");
        Form().mDetailSql = LinesScript();
        log.lostAnswer = lost;
        EXPECT_FALSE(Go(1, kDateColumn));
        EXPECT_EQ(Form().Notice(), kSavedInDoubt);
        EXPECT_FALSE(Form().mDetailSql.IsEmpty());
        log.lostAnswer = StatementLog::LostAnswer::None;
        EXPECT_TRUE(Go(1, kDateColumn));
        EXPECT_THAT(Entries(), ElementsAre("人工", "改", "吊车"));
        EXPECT_THAT(Read("select cCodeMx from PM_ItemQCsub"), ElementsAre("M09"));
        Run("update PM_ItemQC set cDigest = '钢材' where iEleVid = 2");
        Form().Unload();
    }
}

TEST_F(EntrySavingTest, ADeletionInDoubtIsNotSaidToHaveFailed) {
    Open();
    Go(1, kDateColumn);
    log.lostAnswer = StatementLog::LostAnswer::Saved;
    windows.answers = {MessageAnswer::Yes};
    Form().DeleteRow();
    EXPECT_EQ(List().Rows(), 4);
    EXPECT_EQ(Form().Notice(),
              "删除当前行时没有收到数据库的答复，不能确定是否已经删除，请重新打开核对。");
    log.lostAnswer = StatementLog::LostAnswer::None;
    windows.answers = {MessageAnswer::Yes};
    Form().DeleteRow();
    EXPECT_EQ(List().Rows(), 3);
    EXPECT_EQ(Form().Notice(), "");
}

// Numbers.

TEST_F(EntrySavingTest, NumbersEndAt32767) {
    Run("update PM_SettingInf set cValue = '32766' where cName = 'NumMax_EleQc'");
    Open();
    const int last = AddFilledRow();
    EXPECT_TRUE(Go(1, kDateColumn));
    EXPECT_EQ(List().RowData(last), 32767);
    const int beyond = AddFilledRow();
    EXPECT_FALSE(Go(1, kDateColumn));
    EXPECT_EQ(List().RowData(beyond), 0);
    EXPECT_EQ(Form().Notice(), "期初编号已经用完（最大 32767），当前行没有保存，没有写入数据库。");
    EXPECT_EQ(Entries().size(), 4U);
    EXPECT_THAT(Read("select cValue from PM_SettingInf where cName = 'NumMax_EleQc'"),
                ElementsAre("32767"));
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_EQ(diagnostics.places.back(), "SaveRow");
}

TEST_F(EntrySavingTest, ANumberBelowTheIdentitiesIsNotTaken) {
    Run("update PM_SettingInf set cValue = '-40000' where cName = 'NumMax_EleQc'");
    Open();
    AddFilledRow();
    EXPECT_FALSE(Go(1, kDateColumn));
    EXPECT_EQ(Form().Notice(), "期初编号小于 -32768，不能使用，当前行没有保存，没有写入数据库。");
    EXPECT_EQ(Entries().size(), 3U);
    EXPECT_THAT(Read("select cValue from PM_SettingInf where cName = 'NumMax_EleQc'"),
                ElementsAre("-40000"));
    EXPECT_THAT(Messages(), IsEmpty());
}

// Apostrophes.

TEST_F(EntrySavingTest, AnApostropheIsSavedInAChangedEntryAndEndsANewOne) {
    Open();
    ChangeDigest(1, "O'Neil");
    EXPECT_TRUE(Go(2, kDateColumn));
    EXPECT_THAT(Entries(), ElementsAre("O'Neil", "钢材", "吊车"));
    const int row = AddFilledRow();
    Go(row, kDigestColumn);
    Type("x'); delete from PM_ItemQC --");
    EXPECT_FALSE(Go(1, kDateColumn));
    EXPECT_EQ(Form().Notice(),
              "保存当前行时出错，没有写入数据库，录入的内容仍保留在表格中。"
              "内容中可能有单引号（'）等不能用的字符。");
    EXPECT_EQ(Entries().size(), 3U);
    EXPECT_EQ(List().Text(row, kDigestColumn), "x'); delete from PM_ItemQC --");
}

TEST_F(EntrySavingTest, ARowThatIsGivenUpTakesItsNoticeAlong) {
    Open();
    const int row = AddFilledRow();
    Go(row, kDigestColumn);
    Type("工'");
    EXPECT_FALSE(Go(1, kDateColumn));
    ASSERT_NE(Form().Notice(), "");
    windows.answers = {MessageAnswer::No, MessageAnswer::Yes};
    Form().GridPeriodItem_AbandonRow(row);
    EXPECT_NE(Form().Notice(), "");
    Form().GridPeriodItem_AbandonRow(row);
    EXPECT_EQ(List().Rows(), 4);
    EXPECT_EQ(Form().Notice(), "");
    // What is not about saving a row stays.
    Form().AddEntryRow();
    data::ReportTrapped("LoadEntryGrid", "gone");
    const std::string loading = Form().Notice();
    windows.answers = {MessageAnswer::Yes};
    Form().GridPeriodItem_AbandonRow(List().Row());
    EXPECT_EQ(List().Rows(), 4);
    EXPECT_EQ(Form().Notice(), loading);
}

// Settled rows.

TEST_F(EntrySavingTest, ASettledRowIsNotDeletedWhenTheCheckAnswers) {
    Open();
    EXPECT_FALSE(Form().CheckRowDeletable(3));
    EXPECT_TRUE(Form().CheckRowDeletable(1));
    EXPECT_THAT(Messages(), ElementsAre("[提示信息|information] 此项目已经结算，不能删除 ！"));
}

}  // namespace
}  // namespace kelvane::ui
