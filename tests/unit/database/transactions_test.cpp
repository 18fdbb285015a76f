#include "adapters/database/transactions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "platform/database.h"

namespace kelvane::database {
namespace {

using platform::ConnectionLost;
using platform::DatabaseBusy;
using platform::DatabaseError;
using testing::ElementsAre;

// An engine that keeps what is asked of it; each thing can be made to fail.
class PlayedEngine : public TransactionEngine {
public:
    std::vector<std::string> calls;
    bool open = false;
    bool busy = false;  // others hold what a lock needs
    bool commitFails = false;
    bool rollBackFails = false;
    bool lost = false;

    bool InTransaction() const override { return open; }
    void Start() override {
        calls.emplace_back("start");
        if (busy) throw DatabaseBusy("busy");
        open = true;
    }
    void StartSnapshot() override {
        calls.emplace_back("start snapshot");
        if (busy) throw DatabaseBusy("busy");
        open = true;
    }
    void Commit() override {
        calls.emplace_back("commit");
        open = false;
        if (commitFails) throw DatabaseError("full");
    }
    void RollBack() override {
        calls.emplace_back("roll back");
        open = false;
        if (rollBackFails) throw DatabaseError("gone");
    }
    void Lock() override {
        calls.emplace_back("lock");
        if (busy) throw DatabaseBusy("busy");
        open = true;
    }
    bool TryLock() noexcept override {
        calls.emplace_back("try");
        open = !busy;
        return open;
    }
    void RequireConnection() const override {
        if (lost) throw ConnectionLost("lost");
    }

    std::vector<std::string> Take() { return std::exchange(calls, {}); }
};

class TransactionsTest : public testing::Test {
protected:
    PlayedEngine mEngine;
    Transactions mTransactions{mEngine};

    template <typename Action>
    int CodeOf(Action action) {
        try {
            std::invoke(action, mTransactions);
        } catch (const DatabaseError& error) {
            return error.NativeCode();
        }
        return 0;
    }
};

TEST_F(TransactionsTest, AnExplicitOneIsTheEngines) {
    mTransactions.Begin();
    EXPECT_TRUE(mTransactions.IsExplicit());
    mTransactions.MakeDurable();
    mTransactions.DropChange();
    mTransactions.Commit();
    mTransactions.Begin();
    mTransactions.RollBack();
    EXPECT_FALSE(mTransactions.IsExplicit());
    EXPECT_THAT(mEngine.calls, ElementsAre("start", "commit", "start", "roll back"));
}

TEST_F(TransactionsTest, TheyDoNotNest) {
    EXPECT_EQ(CodeOf(&Transactions::Commit), 3902);
    EXPECT_EQ(CodeOf(&Transactions::RollBack), 3902);
    mTransactions.Begin();
    EXPECT_EQ(CodeOf(&Transactions::Begin), 3901);
    EXPECT_THAT(mEngine.calls, ElementsAre("start"));
}

TEST_F(TransactionsTest, OneThatAnErrorHasUndoneIsNotCommitted) {
    mTransactions.Begin();
    EXPECT_NO_THROW(mTransactions.RequireIntact());
    mEngine.open = false;
    EXPECT_THROW(mTransactions.RequireIntact(), DatabaseError);
    EXPECT_EQ(CodeOf(&Transactions::Commit), 3930);
    EXPECT_FALSE(mTransactions.IsExplicit());
    EXPECT_THAT(mEngine.calls, ElementsAre("start"));
}

TEST_F(TransactionsTest, OneThatWentWithTheConnectionSaysSo) {
    mTransactions.Begin();
    mEngine.open = false;
    mEngine.lost = true;
    EXPECT_THROW(mTransactions.RequireIntact(), ConnectionLost);
    EXPECT_THROW(mTransactions.Commit(), ConnectionLost);
}

TEST_F(TransactionsTest, AChangeUnderARecordSetsLockIsDurableAndTheLockIsTakenAgain) {
    mTransactions.AddLocker();
    mTransactions.MakeDurable();
    EXPECT_THAT(mEngine.Take(), ElementsAre("start", "commit", "try"));
    mTransactions.RemoveLocker();
    EXPECT_THAT(mEngine.calls, ElementsAre("roll back"));
}

TEST_F(TransactionsTest, AFailedChangeIsUndoneAlone) {
    mTransactions.AddLocker();
    mTransactions.DropChange();
    EXPECT_THAT(mEngine.calls, ElementsAre("start", "roll back", "try"));
    EXPECT_NE(mTransactions.Current(), 0);
}

TEST_F(TransactionsTest, TheLastLockerGivesTheLockBack) {
    mTransactions.AddLocker();
    mTransactions.AddLocker();
    mTransactions.RemoveLocker();
    EXPECT_TRUE(mTransactions.HasLockers());
    EXPECT_THAT(mEngine.Take(), ElementsAre("start"));
    mEngine.rollBackFails = true;
    mTransactions.RemoveLocker();
    EXPECT_FALSE(mTransactions.HasLockers());
    EXPECT_THAT(mEngine.calls, ElementsAre("roll back"));
}

TEST_F(TransactionsTest, ALockThatIsBusyIsNoLocker) {
    mEngine.busy = true;
    EXPECT_THROW(mTransactions.AddLocker(), DatabaseBusy);
    EXPECT_FALSE(mTransactions.HasLockers());
}

TEST_F(TransactionsTest, AnExplicitOneTakesTheRecordSetsLockOverAndLeavesIt) {
    mTransactions.AddLocker();
    const long locked = mTransactions.Current();
    mTransactions.Begin();
    EXPECT_EQ(mTransactions.Current(), locked);
    mTransactions.RollBack();
    EXPECT_NE(mTransactions.Current(), locked);
    EXPECT_THAT(mEngine.calls, ElementsAre("start", "roll back", "try"));
}

TEST_F(TransactionsTest, AFailedCommitAlsoTakesTheLockAgain) {
    mTransactions.AddLocker();
    mTransactions.Begin();
    mEngine.commitFails = true;
    EXPECT_THROW(mTransactions.Commit(), DatabaseError);
    EXPECT_FALSE(mTransactions.IsExplicit());
    EXPECT_THAT(mEngine.calls, ElementsAre("start", "commit", "try"));
}

TEST_F(TransactionsTest, ALostLockIsTakenAgainBeforeAChange) {
    mTransactions.AddLocker();
    const long first = mTransactions.Current();
    mTransactions.RegainLock();
    EXPECT_EQ(mTransactions.Current(), first);
    mEngine.busy = true;
    mTransactions.MakeDurable();
    EXPECT_EQ(mTransactions.Current(), 0);
    EXPECT_THROW(mTransactions.RegainLock(), DatabaseBusy);
    EXPECT_EQ(mTransactions.Current(), 0);
    mEngine.busy = false;
    mTransactions.RegainLock();
    EXPECT_GT(mTransactions.Current(), first);
    EXPECT_THAT(mEngine.calls, ElementsAre("start", "commit", "try", "lock", "lock"));
}

TEST_F(TransactionsTest, WithoutLockersThereIsNoLockToRegain) {
    mTransactions.RegainLock();
    mTransactions.Begin();
    mTransactions.RegainLock();
    EXPECT_THAT(mEngine.calls, ElementsAre("start"));
}

TEST_F(TransactionsTest, EachHasItsNumber) {
    EXPECT_EQ(mTransactions.Current(), 0);
    mTransactions.Begin();
    const long first = mTransactions.Current();
    EXPECT_NE(first, 0);
    mTransactions.Commit();
    EXPECT_EQ(mTransactions.Current(), 0);
    mTransactions.Begin();
    EXPECT_NE(mTransactions.Current(), first);
}

TEST_F(TransactionsTest, InASnapshotNothingIsChanged) {
    EXPECT_EQ(CodeOf([](Transactions& t) { t.RequireChangeable(); }), 0);
    mTransactions.BeginSnapshot();
    EXPECT_TRUE(mTransactions.IsSnapshot());
    EXPECT_TRUE(mTransactions.IsExplicit());
    EXPECT_EQ(CodeOf([](Transactions& t) { t.RequireChangeable(); }), 3906);
    EXPECT_EQ(CodeOf([](Transactions& t) { t.Begin(); }), 3901);
    EXPECT_EQ(CodeOf([](Transactions& t) { t.BeginSnapshot(); }), 3901);
    mTransactions.RollBack();
    EXPECT_EQ(CodeOf([](Transactions& t) { t.RequireChangeable(); }), 0);
    EXPECT_THAT(mEngine.Take(), ElementsAre("start snapshot", "roll back"));
}

TEST_F(TransactionsTest, ASnapshotThatDoesNotBeginIsNone) {
    mEngine.busy = true;
    EXPECT_THROW(mTransactions.BeginSnapshot(), DatabaseBusy);
    EXPECT_FALSE(mTransactions.IsSnapshot());
    EXPECT_FALSE(mTransactions.IsExplicit());
    EXPECT_EQ(mTransactions.Current(), 0);
}

TEST_F(TransactionsTest, NoSnapshotBeginsWhileRowsAreLocked) {
    mTransactions.AddLocker();
    EXPECT_EQ(CodeOf([](Transactions& t) { t.BeginSnapshot(); }), 3901);
    mTransactions.RemoveLocker();
    mTransactions.BeginSnapshot();
    EXPECT_TRUE(mTransactions.IsSnapshot());
}

}  // namespace
}  // namespace kelvane::database
