#include "tests/database/bulk_fixture.h"

namespace kelvane::entries {
namespace {

using platform::BatchOutcome;
using platform::Money;

using ImportTest = BulkFixture;

TEST_F(ImportTest, NewRowsAreWrittenInOneTransactionUnderTheCountersNumbers) {
    Add("一", "1,000.5");
    AddLine(Add("二", "", "机械费"), "J01", "8", "2");
    EXPECT_EQ(Import(), Lines{});
    EXPECT_EQ(Counts(), "2 0 0 0 0 ");
    EXPECT_EQ(
        Written(),
        (Lines{"gConn: begin", "gConn: select cValue from PM_SettingInf where cName='NumMax_EleQc'",
               "gConn: insert into PM_ItemQC(dDate,cCenterCode,cItemCode,cKeyCode1,"
               "cKeyCode2,cElementCode,cDigest,mQC,iEleVid) values ( "
               "'2004-06-30','D01','P01','','','E01','一',1000.5,10) ",
               "gConn: delete from PM_ItemQCsub where iEleVid=11 insert into "
               "PM_ItemQCsub(iEleVid,cCodeMx,iUprice,iNum,mQC) values(11,'J01',8,2,16)",
               "gConn: insert into PM_ItemQC(dDate,cCenterCode,cItemCode,cKeyCode1,"
               "cKeyCode2,cElementCode,cDigest,mQC,iEleVid) values ( "
               "'2004-06-30','D01','P01','','','E02','二',16,11) ",
               "gConn: commit"}));
    EXPECT_EQ(Counter(), "11");
    EXPECT_EQ(Stored(), std::string(kBefore) + "10一1000.5 11二16 ");
    EXPECT_EQ(Read("select count(*) from PM_ItemQCsub where iEleVid=11"), "1");
    EXPECT_EQ(result.firstIdentity, 10);
    EXPECT_EQ(result.sum, Money::FromText("1016.5"));
    ASSERT_EQ(journal.batches.size(), 1U);
    EXPECT_EQ(result.batch, 1);
    const platform::Batch& batch = journal.batches[0];
    EXPECT_EQ(batch.outcome, BatchOutcome::Written);
    ASSERT_EQ(batch.intent.changes.size(), 2U);
    EXPECT_EQ(batch.intent.changes[1].identity, 11);
    EXPECT_FALSE(batch.intent.changes[1].before);
    EXPECT_EQ(batch.intent.changes[1].after->fields.back(),
              (std::pair<std::string, std::string>("mQC", "16.0000")));
    ASSERT_EQ(batch.intent.changes[1].after->lines.size(), 1U);
}

TEST_F(ImportTest, ADryRunDoesTheSameAndRollsBack) {
    Add("一", "1,000.5");
    request.dryRun = true;
    EXPECT_EQ(Import(), Lines{});
    EXPECT_EQ(Counts(), "1 0 0 0 0 ");
    EXPECT_EQ(result.firstIdentity, 10);
    const Lines dry = Written();
    EXPECT_EQ(dry.back(), "gConn: roll back");
    EXPECT_EQ(Counter(), "9");
    EXPECT_EQ(Stored(), kBefore);
    EXPECT_TRUE(journal.batches.empty());
    request.dryRun = false;
    Import();
    Lines real = Written();
    EXPECT_EQ(real.back(), "gConn: commit");
    real.back() = "gConn: roll back";
    EXPECT_EQ(real, dry);
}

TEST_F(ImportTest, OneRefusedRowKeepsAllOut) {
    Add("一", "1");
    Add("", "2");
    EXPECT_EQ(Import(), Lines{"3.8 digest.empty 摘要不能为空"});
    EXPECT_EQ(Counts(), "1 0 0 0 1 ");
    EXPECT_EQ(Written(), Lines{});
    EXPECT_EQ(Stored(), kBefore);
    EXPECT_TRUE(journal.batches.empty());
    EXPECT_FALSE(result.batch);
}

TEST_F(ImportTest, WhatFailsInBetweenLeavesNothing) {
    Add("一", "1");
    Add("二", "2");
    mLog.failing = "'二'";
    EXPECT_THROW(Import(), platform::DatabaseError);
    EXPECT_EQ(Stored(), kBefore);
    EXPECT_EQ(Counter(), "9");
    EXPECT_TRUE(journal.batches.empty());
}

TEST_F(ImportTest, AnErrorThatARuleTrapsIsNoFinding) {
    Add("一", "1");
    mLog.failing = "from PM_DutyCenter";
    EXPECT_THROW(Import(), platform::DatabaseError);
    EXPECT_EQ(Stored(), kBefore);
}

TEST_F(ImportTest, ANumberThatAnotherOperatorTookIsNotGivenAgain) {
    Add("一", "1");
    journal.begun = [this] {
        if (Counter() == "9")
            Run("update PM_SettingInf set cValue='10' where cName='NumMax_EleQc'");
    };
    EXPECT_EQ(Import(), Lines{});
    EXPECT_EQ(Stored(), std::string(kBefore) + "11一1 ");
    ASSERT_EQ(journal.batches.size(), 1U);
    EXPECT_EQ(journal.batches[0].intent.changes[0].identity, 11);
    EXPECT_EQ(Counter(), "11");
}

TEST_F(ImportTest, WhoeverIsAlwaysOvertakenGivesUpWithNothingWritten) {
    Add("一", "1");
    int taken = 0;
    journal.begun = [&] {
        platform::StatementText statement("update PM_SettingInf set cValue='");
        statement.Number(100 + ++taken) << "' where cName='NumMax_EleQc'";
        mOther->Execute(statement);
    };
    EXPECT_THROW(Import(), platform::DatabaseBusy);
    EXPECT_EQ(Stored(), kBefore);
    EXPECT_TRUE(journal.batches.empty());
}

TEST_F(ImportTest, ABudgetThatAnotherOperatorUsesMeanwhileIsSeen) {
    Run("insert into pm_BudgetVer values(1,1)");
    Run("insert into pm_budget values(1,'P01','E01',1,1000)");
    Add("一", "600");
    journal.begun = [this] {
        if (journal.batches.size() == 1 && Read("select count(*) from PM_ItemQC") == "2") {
            Run("insert into PM_ItemQC values(5,'2004-06-01','D01','P01','','','E01','他',200)");
        }
    };
    EXPECT_EQ(Import(), Lines{"2.9 budget.exceeded 金额超出项目预算中的项目期初发生额"});
    EXPECT_EQ(Stored(), std::string(kBefore) + "5他200 ");
    EXPECT_TRUE(journal.batches.empty());
    EXPECT_EQ(Counter(), "9");
}

TEST_F(ImportTest, TwoRowsUseABudgetUpTogether) {
    Run("insert into pm_BudgetVer values(1,1)");
    Run("insert into pm_budget values(1,'P01','E01',1,1000)");
    Add("一", "400");
    Add("二", "400");
    Add("三", "300");
    request.tellBudgets = true;
    EXPECT_EQ(Import(), Lines{"3.9 budget.exceeded 金额超出项目预算中的项目期初发生额"});
    ASSERT_EQ(result.plan.budgets.size(), 1U);
    const BudgetUse& use = result.plan.budgets[0];
    EXPECT_EQ(use.itemCode + use.itemName + use.elementName, "P01一号楼人工费");
    EXPECT_EQ(use.budget, Money::FromText("1000"));
    EXPECT_EQ(use.before, Money::FromText("300"));
    EXPECT_EQ(use.after, Money::FromText("1000"));
}

TEST_F(ImportTest, WithoutNumbersNothingIsWritten) {
    Add("一", "1");
    Add("二", "2");
    Run("update PM_SettingInf set cValue='32766' where cName='NumMax_EleQc'");
    EXPECT_EQ(Import(), Lines{"3.0 identity.exhausted 期初编号已经用完（最大 "
                              "32767），当前行没有保存，没有写入数据库。"});
    EXPECT_EQ(Counts(), "1 0 0 0 1 ");
    Run("update PM_SettingInf set cValue='-40000' where cName='NumMax_EleQc'");
    EXPECT_EQ(Import().front(),
              "2.0 identity.exhausted 期初编号小于 "
              "-32768，不能使用，当前行没有保存，没有写入数据库。");
    Run("delete from PM_SettingInf");
    EXPECT_EQ(Import(), (Lines{"2.0 counter.missing 出现冲突，请稍后再试！",
                               "3.0 counter.missing 出现冲突，请稍后再试！"}));
    EXPECT_EQ(Stored(), kBefore);
}

TEST_F(ImportTest, ALockedListTakesNothing) {
    Add("一", "1");
    Run("insert into Gl_mend values(7,1)");
    EXPECT_EQ(Import(), Lines{"0.0 list.locked 启用期间已经结账，不能再录入期初。"});
    EXPECT_EQ(Counts(), "0 0 0 0 1 ");
    EXPECT_EQ(Stored(), kBefore);
}

TEST_F(ImportTest, TotalsThatDifferStopEverything) {
    Add("一", "1.5");
    Add("", "2");
    request.expectedRows = {2, 3};
    request.expectedSums = {Money::FromText("3.5"), Money::FromText("4")};
    EXPECT_EQ(Import(), (Lines{"0.0 file.total 控制总数不符：应为 3 行，文件中是 2 行",
                               "0.0 file.total 控制总额不符：应为 4.00，文件中是 3.50"}));
    EXPECT_EQ(Counts(), "0 0 0 0 2 ");
}

TEST_F(ImportTest, RowsOfTheAccountAreLeftChangedOrDeleted) {
    AddStored(1);
    AddStored(2).operation = "删除";
    EXPECT_EQ(Import(), Lines{});
    EXPECT_EQ(Counts(), "0 0 1 1 0 ");
    EXPECT_EQ(
        Written(),
        (Lines{"gConn: begin", "gConn: select * from PM_ItemQC with (HOLDLOCK) where iEleVid=2",
               "gConn: select * from PM_ItemQCsub where iEleVid=2",
               "gConn: delete from pm_itemQC where iEleVid=2",
               "gConn: delete from pm_itemQCSub where iEleVid=2", "gConn: commit"}));
    EXPECT_EQ(Stored(), "1旧300 ");
    EXPECT_EQ(Read("select count(*) from PM_ItemQCsub"), "0");

    file = {};
    AddStored(1).texts[kAmountColumn] = "301";
    request.again = true;
    EXPECT_EQ(Import(), Lines{});
    EXPECT_EQ(Counts(), "0 1 0 0 0 ");
    EXPECT_EQ(Stored(), "1旧301 ");
    EXPECT_EQ(Counter(), "9");
    const platform::BatchChange& change = journal.batches.back().intent.changes.front();
    EXPECT_EQ(change.identity, 1);
    EXPECT_EQ(change.before->fields.back().second, "300.0000");
    EXPECT_EQ(change.after->fields.back().second, "301.0000");
}

TEST_F(ImportTest, LinesOfAnEntryAreReplaced) {
    BulkEntry& entry = AddStored(2);
    entry.lines[0].texts.quantity = "11";
    entry.texts[kAmountColumn] = "";
    EXPECT_EQ(Import(), Lines{});
    EXPECT_EQ(Stored(), "1旧300 2吊车88 ");
    EXPECT_EQ(Read("select iNum from PM_ItemQCsub"), "11");
}

TEST_F(ImportTest, NothingToDoWritesNothing) {
    AddStored(1);
    AddStored(2);
    EXPECT_EQ(Import(), Lines{});
    EXPECT_EQ(Counts(), "0 0 0 2 0 ");
    EXPECT_EQ(Written(), Lines{});
    EXPECT_TRUE(journal.batches.empty());
}

TEST_F(ImportTest, WhatAnotherOperatorChangedIsAConflictThatShowsBothValues) {
    AddStored(1).texts[kDigestColumn] = "新";
    BulkEntry& withLines = AddStored(2);
    withLines.texts[kDateColumn] = "2004-05-31";
    Run("update PM_ItemQC set cDigest='他',mQC=305 where iEleVid=1");
    Run("update PM_ItemQCsub set iNum=9 where iEleVid=2");
    EXPECT_EQ(Import(),
              (Lines{"2.8 entry.changed 该行已被他人修改：文件中是“新”，帐套中现在是“他”",
                     "2.9 entry.changed 该行已被他人修改：文件中是“300.00”，帐套中现在是“305.00”",
                     "3.1 entry.changed "
                     "该行已被他人修改：文件中是“2004-05-31”，帐套中现在是“2004-06-02”"}));
    EXPECT_EQ(Counts(), "0 0 0 0 2 ");
}

TEST_F(ImportTest, LinesThatAnotherOperatorChangedAreAConflict) {
    AddStored(2).operation = "删除";
    Run("update PM_ItemQCsub set iNum=9 where iEleVid=2");
    EXPECT_EQ(Import(), Lines{"2.0 entry.changed 该行的明细已被他人修改"});
}

TEST_F(ImportTest, AnEntryThatChangesBetweenCheckAndWriteIsAConflict) {
    AddStored(1).texts[kDigestColumn] = "新";
    journal.begun = [this] { Run("update PM_ItemQC set mQC=305 where iEleVid=1"); };
    EXPECT_EQ(Import().size(), 2U);
    EXPECT_EQ(Stored(), "1旧305 2吊车80 ");
    EXPECT_TRUE(journal.batches.empty());
}

TEST_F(ImportTest, IdentitiesAreOnesThatAreThereAndStandOnce) {
    AddStored(1).texts[kDigestColumn] = "新";
    AddStored(1);
    AddStored(2).identity = "77";
    AddStored(2).identity = "x";
    file.entries[3].check = "";
    file.entries[2].texts[kDigestColumn] = "新";
    Add("删", "1").operation = "删除";
    Add("错", "1").operation = "新增";
    EXPECT_EQ(Import(), (Lines{"2.12 entry.duplicate 编号 1 不止一次：另见第 3 行",
                               "3.12 entry.duplicate 编号 1 不止一次：另见第 2 行",
                               "4.12 entry.gone 该行记录已经被他人删除",
                               "5.12 entry.gone 该行记录已经被他人删除",
                               "6.11 entry.gone 没有编号的行不能删除",
                               "7.11 file.column “操作”只能是空白或“删除”，此处是“新增”"}));
    EXPECT_EQ(Counts(), "0 0 0 0 6 ");
}

TEST_F(ImportTest, TheSameFileASecondTimeIsRefusedUnlessAskedFor) {
    Add("一", "1");
    Import();
    EXPECT_EQ(Import(), Lines{"0.0 file.again 该文件已于 2026-11-22 08:30:00 由 demo "
                              "导入（批次 1），确需再次导入须指明 --again"});
    request.again = true;
    EXPECT_EQ(Import(), Lines{});
    EXPECT_EQ(result.notes, Lines{"该文件已于 2026-11-22 08:30:00 由 demo 导入（批次 1）"});
    EXPECT_EQ(Counter(), "11");
}

TEST_F(ImportTest, AfterAnUndoTheSameFileIsTakenAgain) {
    Add("一", "1");
    Import();
    platform::BatchIntent undo;
    undo.kind = "undo";
    undo.undoes = 1;
    journal.End(journal.Begin(undo), BatchOutcome::Written);
    EXPECT_EQ(Import(), Lines{});
    EXPECT_EQ(Counter(), "11");
}

TEST_F(ImportTest, OfABatchThatWasCutShortTheAccountTells) {
    Add("一", "1");
    Import();
    journal.batches[0].outcome.reset();
    EXPECT_EQ(Import().size(), 1U);
    EXPECT_EQ(journal.batches[0].outcome, BatchOutcome::Written);
    // It was rolled back.
    journal.batches[0].outcome.reset();
    Run("delete from PM_ItemQC where iEleVid=10");
    EXPECT_EQ(Import(), Lines{});
    EXPECT_EQ(journal.batches[0].outcome, BatchOutcome::NotWritten);
    EXPECT_EQ(journal.batches[1].outcome, BatchOutcome::Written);
    EXPECT_EQ(Stored(), std::string(kBefore) + "11一1 ");
}

TEST_F(ImportTest, ACommitWithoutAnAnswerIsInDoubt) {
    Add("一", "1");
    mLog.lostAnswer = support::StatementLog::LostAnswer::Saved;
    EXPECT_THROW(Import(), platform::CommitInDoubt);
    ASSERT_EQ(journal.batches.size(), 1U);
    EXPECT_EQ(journal.batches[0].outcome, BatchOutcome::InDoubt);
    mLog.lostAnswer = support::StatementLog::LostAnswer::None;
    EXPECT_EQ(Import().front().substr(0, 14), "0.0 file.again");
    EXPECT_EQ(journal.batches[0].outcome, BatchOutcome::Written);
}

TEST_F(ImportTest, ADoubtThatTheJournalCannotKeepIsADoubtStill) {
    Add("一", "1");
    journal.endFails = true;
    mLog.lostAnswer = support::StatementLog::LostAnswer::Saved;
    EXPECT_THROW(Import(), platform::CommitInDoubt);
    EXPECT_EQ(Stored(), std::string(kBefore) + "10一1 ");
}

TEST_F(ImportTest, AJournalThatCannotSayHowItEndedIsTold) {
    Add("一", "1");
    journal.endFails = true;
    EXPECT_EQ(Import(), Lines{});
    EXPECT_EQ(result.notes, Lines{"已经写入帐套，但批次 1 的结果没有记入日志：模拟的日志错误"});
    EXPECT_EQ(Stored(), std::string(kBefore) + "10一1 ");
}

TEST_F(ImportTest, WhoCancelsLeavesNothing) {
    Add("一", "1");
    Add("二", "2");
    request.progress = [](std::size_t done, std::size_t total) { return done < total; };
    EXPECT_THROW(Import(), ImportCancelled);
    EXPECT_EQ(Stored(), kBefore);
    EXPECT_EQ(Counter(), "9");
}

}  // namespace
}  // namespace kelvane::entries
