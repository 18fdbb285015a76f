#include "entries/bulk/undo.h"

#include "tests/database/bulk_fixture.h"

namespace kelvane::entries {
namespace {

using platform::BatchOutcome;

class UndoTest : public BulkFixture {
protected:
    // What was kept and what was found, by the entries' identities.
    Lines Undo(int batch) {
        UndoRequest undo;
        undo.head.user = "demo";
        undo.journal = &journal;
        undo.batch = batch;
        undo.dryRun = dryRun;
        mLog.statements.clear();
        undone = UndoBatch(masterData, undo);
        static_cast<BatchResult&>(result) = undone;
        Lines told;
        for (const auto* findings : {&undone.kept, &undone.plan.findings}) {
            for (const BulkFinding& each : *findings) {
                const auto at = static_cast<std::size_t>(each.row);
                const std::string entry =
                    at == 0 ? "all" : std::to_string(undone.identities[at - 1]);
                told.push_back(entry + " " + std::string(each.finding.id) + " " +
                               each.finding.text);
            }
        }
        return told;
    }
    std::string WhyRefused(int batch) {
        try {
            Undo(batch);
        } catch (const UndoRefused& refused) {
            return refused.what();
        }
        return {};
    }
    // One new entry, one changed and one deleted.
    void ImportOfEachKind() {
        Add("新", "1.5");
        AddStored(1).texts[kDigestColumn] = "改";
        AddStored(2).operation = "删除";
        ASSERT_EQ(Import(), Lines{});
        ASSERT_EQ(Stored(), "1改300 10新1.5 ");
    }

    bool dryRun = false;
    UndoResult undone;
};

constexpr const char* kKept = "entry.changed 该行在这个批次之后又被修改，保留不动";

TEST_F(UndoTest, BringsTheAccountBackToWhatItWas) {
    ImportOfEachKind();
    EXPECT_EQ(Undo(1), Lines{});
    EXPECT_EQ(Counts(), "1 1 1 0 0 ");
    EXPECT_EQ(Stored(), kBefore);
    EXPECT_EQ(Read("select count(*) from PM_ItemQCsub where iEleVid=2 and mQC=80"), "1");
    EXPECT_EQ(Counter(), "10");
    EXPECT_EQ(undone.batch, 2);
    const platform::Batch& batch = journal.batches.back();
    EXPECT_EQ(batch.intent.kind, "undo");
    EXPECT_EQ(batch.intent.undoes, 1);
    EXPECT_EQ(batch.outcome, BatchOutcome::Written);
    ASSERT_EQ(batch.intent.changes.size(), 3U);
    EXPECT_EQ(batch.intent.changes[2].identity, 2);
    EXPECT_FALSE(batch.intent.changes[2].before);
}

TEST_F(UndoTest, IsABatchThatCanBeUndoneItself) {
    ImportOfEachKind();
    Undo(1);
    EXPECT_EQ(Undo(2), Lines{});
    EXPECT_EQ(Stored(), "1改300 10新1.5 ");
    // What was taken back and brought back again can be taken back once more.
    EXPECT_EQ(WhyRefused(2), "批次 2 已经撤回");
    EXPECT_EQ(Undo(1), Lines{});
    EXPECT_EQ(Stored(), kBefore);
}

TEST_F(UndoTest, ADryRunRollsBack) {
    ImportOfEachKind();
    dryRun = true;
    EXPECT_EQ(Undo(1), Lines{});
    EXPECT_EQ(Counts(), "1 1 1 0 0 ");
    EXPECT_EQ(Written().back(), "gConn: roll back");
    EXPECT_EQ(Stored(), "1改300 10新1.5 ");
    EXPECT_EQ(journal.batches.size(), 1U);
}

TEST_F(UndoTest, AmountsComeBackToTheLastDigit) {
    Run("update PM_ItemQC set mQC=300.1234 where iEleVid=1");
    AddStored(1).texts[kAmountColumn] = "7";
    ASSERT_EQ(Import(), Lines{});
    EXPECT_EQ(Undo(1), Lines{});
    EXPECT_EQ(Stored(), "1旧300.1234 2吊车80 ");
}

TEST_F(UndoTest, WhatWasChangedSinceIsKeptAndNamed) {
    ImportOfEachKind();
    Run("update PM_ItemQC set cDigest='又改' where iEleVid=1");
    Run("insert into PM_ItemQC values(2,'2004-06-02','D01','P01','','','E01','别',5)");
    EXPECT_EQ(Undo(1),
              (Lines{std::string("1 ") + kKept, "2 entry.changed 该编号已另有一行期初，保留不动"}));
    EXPECT_EQ(Counts(), "0 0 1 2 0 ");
    EXPECT_EQ(Stored(), "1又改300 2别5 ");
}

TEST_F(UndoTest, WhatWasDeletedSinceIsNamed) {
    ImportOfEachKind();
    Run("delete from PM_ItemQC where iEleVid=10");
    EXPECT_EQ(Undo(1), Lines{"10 entry.gone 该行记录已经被他人删除"});
    EXPECT_EQ(Counts(), "1 1 0 1 0 ");
    EXPECT_EQ(Stored(), kBefore);
}

TEST_F(UndoTest, WhereNothingElseIsThereItIsRefused) {
    Add("新", "1.5");
    Import();
    Run("update PM_ItemQC set cDigest='又改' where iEleVid=10");
    EXPECT_EQ(Undo(1), Lines{std::string("10 ") + kKept});
    EXPECT_EQ(Counts(), "0 0 0 0 1 ");
    EXPECT_TRUE(undone.HasFindings());
    EXPECT_EQ(journal.batches.size(), 1U);
}

TEST_F(UndoTest, ARowThatIsBackAlreadyIsLeft) {
    ImportOfEachKind();
    Run("update PM_ItemQC set cDigest='旧' where iEleVid=1");
    EXPECT_EQ(Undo(1), Lines{});
    EXPECT_EQ(Counts(), "1 0 1 1 0 ");
    EXPECT_EQ(Stored(), kBefore);
}

TEST_F(UndoTest, TheRulesHold) {
    ImportOfEachKind();
    Run("delete from PM_ItemElement where cElementCode='E02'");
    EXPECT_EQ(Undo(1), Lines{"2 element.unknown 输入的项目要素不存在，须重新输入！"});
    EXPECT_EQ(Counts(), "0 1 1 0 1 ");
    EXPECT_EQ(Stored(), "1改300 10新1.5 ");
}

TEST_F(UndoTest, AClosedPeriodRefusesIt) {
    ImportOfEachKind();
    Run("insert into Gl_mend values(7,1)");
    EXPECT_EQ(Undo(1), Lines{"all list.locked 启用期间已经结账，不能再录入期初。"});
    EXPECT_EQ(Counts(), "0 0 0 0 3 ");
    EXPECT_EQ(Stored(), "1改300 10新1.5 ");
}

TEST_F(UndoTest, SomeBatchesCannotBeTakenBack) {
    ImportOfEachKind();
    EXPECT_EQ(WhyRefused(7), "没有批次 7");
    platform::Batch& batch = journal.batches[0];
    batch.running = true;
    EXPECT_EQ(WhyRefused(1), "批次 1 正在写入");
    batch.running = false;
    batch.problem = "第 2 行";
    EXPECT_EQ(WhyRefused(1), "批次 1 的日志已损坏：第 2 行");
    batch.problem.clear();
    batch.outcome = BatchOutcome::NotWritten;
    EXPECT_EQ(WhyRefused(1), "批次 1 没有写入，不必撤回");
    // Nothing of it is there, before or after.
    batch.outcome.reset();
    Run("update PM_ItemQC set cDigest='又改',mQC=1");
    Run("insert into PM_ItemQC values(2,'2004-06-02','D01','P01','','','E01','别',5)");
    EXPECT_EQ(WhyRefused(1), "不能确定批次 1 是否已经写入，请核对帐套");
}

TEST_F(UndoTest, OfABatchThatWasCutShortTheAccountTells) {
    ImportOfEachKind();
    journal.batches[0].outcome.reset();
    EXPECT_EQ(Undo(1), Lines{});
    EXPECT_EQ(journal.batches[0].outcome, BatchOutcome::Written);
    EXPECT_EQ(Stored(), kBefore);
}

TEST_F(UndoTest, AnEntryThatChangesMeanwhileIsKept) {
    ImportOfEachKind();
    journal.begun = [this] { Run("update PM_ItemQC set cDigest='又改' where iEleVid=1"); };
    EXPECT_EQ(Undo(1), Lines{std::string("1 ") + kKept});
    EXPECT_EQ(Stored(), "1又改300 2吊车80 ");
}

}  // namespace
}  // namespace kelvane::entries
