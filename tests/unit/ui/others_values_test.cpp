// A row that was saved over another operator's changes: what the notice line says, and how those
// changes come back to be looked at.
#include "tests/unit/ui/entry_list_fixture.h"

namespace kelvane::ui {
namespace {

using platform::kCtrl;
using platform::Key;
using support::StatementLog;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* kReplaced =
    "该行在打开后被他人修改，已按当前内容保存（Ctrl+Z 查看他人的内容，Esc 不再提示）：";
constexpr const char* kLookingAt =
    "这是他人保存的内容，离开此行时将按此保存，按 Esc 恢复自己的内容。";

std::string Told(const char* entries) {
    return std::string(kReplaced) + entries + "。";
}

class OthersValuesTest : public EntryListTest {
protected:
    OthersValuesTest() { data::gNumPointMoney = 2; }

    bool Undo() { return Form().KeyDown(platform::KeyOfCharacter(U'Z'), kCtrl); }
    bool Escape() { return List().NavigationKey(Key::Escape, 0); }
    void Change(int row, int col, std::string_view text) {
        Go(row, col);
        Type(text);
    }
    // Leaving a row for another one; what is told then.
    std::string ToldWhenLeft(int to) {
        EXPECT_TRUE(Go(to, kDateColumn));
        return Form().Notice();
    }
    std::string Digest(const platform::FixedText& query) { return Read(query).at(0); }
};

TEST_F(OthersValuesTest, AnUnchangedAccountIsNotTold) {
    Open();
    for (const int row : {1, 2, 1, 2, 1}) {
        Go(row, kDateColumn);
        EXPECT_EQ(Form().Notice(), "") << row;
    }
    Change(1, kDigestColumn, "改");
    EXPECT_EQ(ToldWhenLeft(2), "");
    // What this window has saved itself is not another's.
    EXPECT_EQ(ToldWhenLeft(1), "");
    Change(1, kElementColumn, "机械费");
    List().SetText(1, kAmountColumn, "8");
    EXPECT_EQ(ToldWhenLeft(2), "");
    Go(1, kDateColumn);
    EXPECT_EQ(ToldWhenLeft(2), "");
    const int row = AddFilledRow("5");
    EXPECT_EQ(ToldWhenLeft(1), "");
    Go(row, kDateColumn);
    EXPECT_EQ(ToldWhenLeft(1), "");
}

TEST_F(OthersValuesTest, TheSaveWinsAndSaysSo) {
    Open();
    Change(1, kDigestColumn, "改");
    Run("update PM_ItemQC set cDigest = '他人' where iEleVid = 1");
    log.statements.clear();
    EXPECT_EQ(ToldWhenLeft(2), Told("P01 人工费 改（期初编号 1）"));
    EXPECT_EQ(Digest("select cDigest from PM_ItemQC where iEleVid = 1"), "改");
    // The read is the save's own.
    const auto lines = log.Lines();
    EXPECT_EQ(std::count_if(lines.begin(), lines.end(),
                            [](const std::string& line) {
                                return line.find("from PM_ItemQC ") != std::string::npos;
                            }),
              1);
    EXPECT_EQ(lines.back(), "gConn: commit");
}

TEST_F(OthersValuesTest, ARowThatIsOnlyPassedIsSavedOverToo) {
    Open();
    Go(1, kDateColumn);
    Run("update PM_ItemQC set mQC = 99, cCenterCode = 'D02' where iEleVid = 1");
    EXPECT_EQ(ToldWhenLeft(2), Told("P01 人工费 人工（期初编号 1）"));
    EXPECT_THAT(Read("select mQC from PM_ItemQC where iEleVid = 1"), ElementsAre("1234.5"));
}

TEST_F(OthersValuesTest, EveryColumnIsNoticed) {
    const std::vector<platform::FixedText> changes{
        "update PM_ItemQC set dDate = '2004-06-05' where iEleVid = 1",
        "update PM_ItemQC set cCenterCode = 'D02' where iEleVid = 1",
        "update PM_ItemQC set cItemCode = 'P02' where iEleVid = 1",
        "update PM_ItemQC set cKeyCode1 = '二标段' where iEleVid = 1",
        "update PM_ItemQC set cKeyCode2 = '三' where iEleVid = 1",
        "update PM_ItemQC set cElementCode = 'E03' where iEleVid = 1",
        "update PM_ItemQC set cElementCode = null where iEleVid = 1",
        "update PM_ItemQC set cDigest = '' where iEleVid = 1",
        "update PM_ItemQC set mQC = null where iEleVid = 1"};
    Open();
    for (const platform::FixedText& change : changes) {
        Go(1, kDateColumn);
        Run(change);
        EXPECT_THAT(ToldWhenLeft(2), StartsWith(kReplaced));
        Escape();
        EXPECT_EQ(Form().Notice(), "");
    }
}

TEST_F(OthersValuesTest, WhatReadsBackOtherwiseWasNotChanged) {
    Open();
    // Trailing blanks, an empty text for none, a time of day, more decimals than are shown.
    Run("update PM_ItemQC set cDigest = '人工  ', cKeyCode2 = null, dDate = '2004-06-01 10:00:00', "
        "mQC = 1234.5001 where iEleVid = 1");
    Go(1, kDateColumn);
    EXPECT_EQ(ToldWhenLeft(2), "");
    // The sum of lines by another operator's loading: it is what this one's has made of it.
    Run("update PM_ItemQC set mQC = 350 where iEleVid = 2");
    EXPECT_EQ(ToldWhenLeft(1), "");
}

TEST_F(OthersValuesTest, AnElementIsTheSameUnderAnyOfItsNames) {
    Run("insert into PM_ItemElement values('E04','人工费',0,'')");
    Run("update PM_ItemQC set cElementCode = 'E04' where iEleVid = 1");
    Open();
    Go(1, kDateColumn);
    EXPECT_EQ(ToldWhenLeft(2), "");
    Run("update PM_ItemElement set cElementName = '材料' where cElementCode = 'E02'");
    Change(2, kElementColumn, "材料");
    List().SetText(2, kAmountColumn, "350.00");
    EXPECT_EQ(ToldWhenLeft(1), "");
    Go(2, kDateColumn);
    EXPECT_EQ(ToldWhenLeft(1), "");
}

TEST_F(OthersValuesTest, TheOthersValuesComeBackIntoTheRow) {
    Open();
    Change(1, kDigestColumn, "改");
    Run("update PM_ItemQC set cDigest = '他人', dDate = '2004-06-05', cItemCode = 'P02', "
        "cKeyCode1 = '二标段', mQC = 99 where iEleVid = 1");
    ToldWhenLeft(2);
    log.statements.clear();
    EXPECT_TRUE(Undo());
    EXPECT_EQ(List().Row(), 1);
    EXPECT_EQ(List().RowText(1), "\t2004-06-05\tD01\tP02\t二号楼\t二标段\t\t人工费\t他人\t99.00");
    EXPECT_EQ(Form().Notice(), kLookingAt);
    // Nothing is saved by that.
    EXPECT_EQ(Digest("select cDigest from PM_ItemQC where iEleVid = 1"), "改");
    EXPECT_TRUE(List().RowTouched());

    // Once more takes it back, and again.
    EXPECT_TRUE(Undo());
    EXPECT_EQ(List().Text(1, kDigestColumn), "改");
    EXPECT_EQ(Form().Notice(), "");
    EXPECT_FALSE(List().RowTouched());
    EXPECT_TRUE(Undo());
    EXPECT_EQ(List().Text(1, kDigestColumn), "他人");
    Escape();
    EXPECT_EQ(List().Text(1, kDigestColumn), "改");
    EXPECT_TRUE(Undo());

    // Left like that they are saved, which replaces nobody's.
    EXPECT_EQ(ToldWhenLeft(2), "");
    EXPECT_EQ(Digest("select cDigest from PM_ItemQC where iEleVid = 1"), "他人");
    EXPECT_EQ(Digest("select cItemCode from PM_ItemQC where iEleVid = 1"), "P02");
    Go(1, kDigestColumn);
    EXPECT_FALSE(Undo());
}

TEST_F(OthersValuesTest, OwnChangesAreTakenBackFirst) {
    Open();
    Go(1, kDateColumn);
    Run("update PM_ItemQC set cDigest = '他人' where iEleVid = 1");
    ToldWhenLeft(2);
    Change(1, kDigestColumn, "再改");
    EXPECT_TRUE(Undo());
    EXPECT_EQ(List().Text(1, kDigestColumn), "人工");
    EXPECT_TRUE(Undo());
    EXPECT_EQ(List().Text(1, kDigestColumn), "他人");
}

TEST_F(OthersValuesTest, ManyRowsAreNamedAndLookedAtOneAfterTheOther) {
    for (int identity = 11; identity < 19; ++identity) {
        platform::StatementText insert("insert into PM_ItemQC values(");
        insert.Number(identity) << ",'2004-06-01','D01','P01','一标段','','E01','多',5)";
        other->Execute(insert);
    }
    Open();
    ASSERT_EQ(List().Rows(), 12);
    Run("update PM_ItemQC set mQC = 6 where cDigest = '多'");
    std::vector<int> rows;
    for (int row = 1; row < List().Rows(); ++row) {
        if (List().Text(row, kDigestColumn) == "多") rows.push_back(row);
    }
    for (const int row : rows) Go(row, kDateColumn);
    Go(List().Rows() - 2, kDateColumn);
    const std::string told = Form().Notice();
    EXPECT_THAT(told,
                HasSubstr("多（期初编号 18），此前还有 7 行（期初编号 17、16、15、14、13 等）"))
        << told;
    EXPECT_TRUE(Undo());
    EXPECT_EQ(List().RowData(List().Row()), 18);
    EXPECT_EQ(List().Text(List().Row(), kAmountColumn), "6.00");
    Escape();
    EXPECT_THAT(Form().Notice(), HasSubstr("多（期初编号 17），此前还有 6 行"));
    EXPECT_TRUE(Undo());
}

TEST_F(OthersValuesTest, TheNoticeStaysWhileOtherRowsAreSavedAndEndsWithItsRow) {
    Open();
    Go(1, kDateColumn);
    Run("update PM_ItemQC set cDigest = '他人' where iEleVid = 1");
    ToldWhenLeft(2);
    EXPECT_TRUE(List().LeaveRow());
    EXPECT_EQ(Form().Notice(), Told("P01 人工费 人工（期初编号 1）"));
    // A failure is told before it, and it comes back behind that.
    Change(2, kDigestColumn, "改");
    log.failing = "HOLDLOCK";
    EXPECT_FALSE(Go(1, kDateColumn));
    EXPECT_THAT(Form().Notice(), StartsWith("保存当前行时出错"));
    log.failing.clear();
    EXPECT_TRUE(Go(1, kDateColumn));
    EXPECT_EQ(Form().Notice(), Told("P01 人工费 人工（期初编号 1）"));
    EXPECT_EQ(ToldWhenLeft(2), "");
    EXPECT_FALSE(Undo());
}

TEST_F(OthersValuesTest, EscapeEndsTheNoticeAndKeepsTheWayBack) {
    Open();
    Go(1, kDateColumn);
    Run("update PM_ItemQC set cDigest = '他人' where iEleVid = 1");
    ToldWhenLeft(2);
    EXPECT_TRUE(Escape());
    EXPECT_EQ(Form().Notice(), "");
    EXPECT_EQ(Form().Hint(), "");
    // Only in its own row: nobody is taken to where nothing points any more.
    EXPECT_FALSE(Undo());
    List().SetRow(1);
    EXPECT_TRUE(Undo());
    EXPECT_EQ(List().Text(1, kDigestColumn), "他人");
}

TEST_F(OthersValuesTest, OneGoesThereFromARowWithoutChangesAlone) {
    Open();
    Go(1, kDateColumn);
    Run("update PM_ItemQC set cDigest = '他人' where iEleVid = 1");
    ToldWhenLeft(2);
    Form().AddEntryRow();
    const int row = List().Row();
    EXPECT_TRUE(Undo());
    EXPECT_EQ(List().Row(), 1);
    EXPECT_EQ(List().RowData(row), 0);
    Escape();
    // What was changed here is taken back first.
    Change(2, kDigestColumn, "改");
    Undo();
    EXPECT_EQ(List().Row(), 2);
}

TEST_F(OthersValuesTest, ADeletedRowAndAListOpenedAnewAreNotToldOf) {
    Open();
    Go(1, kDateColumn);
    Run("update PM_ItemQC set cDigest = '他人' where iEleVid = 1");
    ToldWhenLeft(2);
    List().SetRow(1);
    windows.answers = {platform::MessageAnswer::Yes};
    Form().DeleteRow();
    EXPECT_EQ(Form().Notice(), "");
    Go(1, kDateColumn);
    Run("update PM_ItemQC set cDigest = '他人' where iEleVid = 2");
    EXPECT_TRUE(List().LeaveRow());
    EXPECT_THAT(Form().Notice(), StartsWith(kReplaced));
    Form().Unload();
    Open();
    EXPECT_EQ(Form().Notice(), "");
    Go(1, kDateColumn);
    EXPECT_FALSE(Undo());
}

// Detail lines.

class OthersLinesTest : public OthersValuesTest {
protected:
    void OtherSavesLines() {
        Run("delete from PM_ItemQCsub where iEleVid = 2");
        Run("insert into PM_ItemQCsub values(2,'M09',1,70,70)");
        Run("update PM_ItemQC set mQC = 70, cDigest = '他人' where iEleVid = 2");
    }
    platform::StatementText LinesScript() {
        platform::StatementText script("delete from PM_ItemQCsub where iEleVid=");
        script.EntryPlaceholder() << " insert into PM_ItemQCsub(iEleVid,cCodeMx,mQC) values(";
        script.EntryPlaceholder() << ",'M05',25)";
        return script;
    }
    std::string SumOfLines() {
        return Read("select sum(mQC) from PM_ItemQCsub where iEleVid = 2").at(0);
    }
};

TEST_F(OthersLinesTest, TheOthersAmountBelongsToTheLinesThatAreStillThere) {
    Open();
    Go(2, kDateColumn);
    OtherSavesLines();
    ToldWhenLeft(1);
    EXPECT_TRUE(Undo());
    EXPECT_EQ(List().Text(2, kAmountColumn), "70.00");
    EXPECT_EQ(Form().Notice(), kLookingAt);
    ToldWhenLeft(1);
    EXPECT_EQ(SumOfLines(), "70");
    EXPECT_THAT(Read("select mQC from PM_ItemQC where iEleVid = 2"), ElementsAre("70"));
}

TEST_F(OthersLinesTest, OwnLinesKeepTheirAmount) {
    Open();
    Go(2, kDigestColumn);
    List().SetText(2, kAmountColumn, "25.00");
    Form().mDetailSql = LinesScript();
    OtherSavesLines();
    ToldWhenLeft(1);
    EXPECT_TRUE(Undo());
    EXPECT_EQ(List().Text(2, kDigestColumn), "他人");
    EXPECT_EQ(List().Text(2, kAmountColumn), "25.00");
    EXPECT_EQ(Form().Notice(), std::string(kLookingAt) + "他人的明细已被替换，不能恢复。");
    ToldWhenLeft(1);
    EXPECT_EQ(SumOfLines(), "25");
    EXPECT_THAT(Read("select mQC from PM_ItemQC where iEleVid = 2"), ElementsAre("25"));
}

TEST_F(OthersLinesTest, AnElementThatWasChangedHereComesBackWithoutLines) {
    Open();
    Go(2, kDateColumn);
    OtherSavesLines();
    Change(2, kElementColumn, "人工费");
    Change(2, kAmountColumn, "9");
    EXPECT_EQ(Form().ElementDetailFlag(2), 0);
    EXPECT_THAT(ToldWhenLeft(1), StartsWith(kReplaced));
    EXPECT_TRUE(Undo());
    EXPECT_EQ(List().Text(2, kElementColumn), "材料费");
    EXPECT_EQ(List().Text(2, kAmountColumn), "70.00");
    EXPECT_EQ(Form().ElementDetailFlag(2), 1);
    EXPECT_EQ(Form().Notice(), std::string(kLookingAt) + "他人的明细已被替换，不能恢复。");
    EXPECT_TRUE(Undo());
    EXPECT_EQ(Form().ElementDetailFlag(2), 0);
}

TEST_F(OthersValuesTest, AnElementOfAnotherComesWithItsDetailKind) {
    Open();
    Go(1, kDateColumn);
    Run("update PM_ItemQC set cElementCode = 'E03' where iEleVid = 1");
    ToldWhenLeft(2);
    EXPECT_TRUE(Undo());
    EXPECT_EQ(List().Text(1, kElementColumn), "机械费");
    EXPECT_EQ(Form().ElementDetailFlag(1), 2);
    EXPECT_TRUE(Undo());
    EXPECT_EQ(List().Text(1, kElementColumn), "人工费");
    EXPECT_EQ(Form().ElementDetailFlag(1), 0);
}

TEST_F(OthersValuesTest, AnElementThatCannotBeReadLeavesTheRow) {
    Open();
    Go(1, kDateColumn);
    Run("update PM_ItemQC set cElementCode = 'E03' where iEleVid = 1");
    ToldWhenLeft(2);
    const std::string before = List().RowText(1);
    log.failing = "from PM_ItemElement where cElementCode";
    Undo();
    log.failing.clear();
    EXPECT_EQ(List().RowText(1), before);
    EXPECT_EQ(Form().Notice(), "操作时出错，该操作没有完成。");
    EXPECT_TRUE(Undo());
    EXPECT_EQ(List().Text(1, kElementColumn), "机械费");
}

// Saves without an answer.

TEST_F(OthersValuesTest, ASaveInDoubtIsNotAnothersChange) {
    for (const auto lost : {StatementLog::LostAnswer::Saved, StatementLog::LostAnswer::NotSaved}) {
        Open();
        Change(1, kDigestColumn, "改");
        log.lostAnswer = lost;
        EXPECT_FALSE(Go(2, kDateColumn));
        log.lostAnswer = StatementLog::LostAnswer::None;
        EXPECT_EQ(ToldWhenLeft(2), "");
        Go(1, kDateColumn);
        EXPECT_EQ(ToldWhenLeft(2), "");
        Form().Unload();
        Run("update PM_ItemQC set cDigest = '人工' where iEleVid = 1");
    }
}

TEST_F(OthersValuesTest, WhatASaveInDoubtCameUponIsToldWhenItIsSaved) {
    for (const auto lost : {StatementLog::LostAnswer::Saved, StatementLog::LostAnswer::NotSaved}) {
        Open();
        Change(1, kDigestColumn, "改");
        Run("update PM_ItemQC set cDigest = '他人' where iEleVid = 1");
        log.lostAnswer = lost;
        EXPECT_FALSE(Go(2, kDateColumn));
        EXPECT_THAT(Form().Notice(), HasSubstr("不能确定是否已经保存"));
        log.lostAnswer = StatementLog::LostAnswer::None;
        EXPECT_EQ(ToldWhenLeft(2), Told("P01 人工费 改（期初编号 1）"));
        Form().Unload();
        Run("update PM_ItemQC set cDigest = '人工' where iEleVid = 1");
    }
}

}  // namespace
}  // namespace kelvane::ui
