// Two operators on one account: what keeps them apart, and what each of them finds afterwards.
#include <gtest/gtest.h>

#include "tests/database/account_fixture.h"

namespace kelvane::database_test {
namespace {

using platform::DatabaseBusy;
using platform::LockType;
using platform::StatementText;
using platform::Transaction;
using platform::Value;

const StatementText kCounter("select cValue from PM_SettingInf where cName='NumMax_EleQc'");
const StatementText kEntry("select * from PM_ItemQC with (HOLDLOCK) where iEleVid=1");
constexpr int kDigestColumn = 7;
constexpr platform::RecordSetOptions kCounterOptions{
    platform::CursorLocation::Server, platform::CursorType::Static, LockType::Pessimistic};

class Locks : public AccountTest {
protected:
    Locks() : mOther(Connect()) {
        Execute("insert into PM_SettingInf(cName,cValue) values('NumMax_EleQc','7')");
        Execute("insert into PM_ItemQC(iEleVid,cDigest,mQC) values(1,'a',10)");
    }
    platform::Connection& Other() { return *mOther; }
    std::string Counter() { return One(kCounter).ToText(); }
    // What the other operator reads in a row that this one has locked: what was there before. An
    // engine that keeps no older state of a row lets the reader wait instead.
    void ExpectOtherReads(const StatementText& statement, int column, const Value& value) {
        try {
            EXPECT_EQ(Other().OpenRecordSet(statement)->Field(column), value);
        } catch (const DatabaseBusy&) {
            EXPECT_EQ(Engine(), EngineKind::SqlServer);
        }
    }

private:
    std::shared_ptr<platform::Connection> mOther;
};

TEST_F(Locks, TheCounterIsOneOperatorsUntilItIsClosed) {
    const auto mine = Account().OpenRecordSet(kCounter, kCounterOptions);
    EXPECT_THROW(Other().OpenRecordSet(kCounter, kCounterOptions), DatabaseBusy);
    ExpectOtherReads(kCounter, 0, Value("7"));
    mine->SetField("cValue", Value("8"));
    EXPECT_EQ(mine->Field("cvalue"), Value("8"));
    ExpectOtherReads(kCounter, 0, Value("7"));
    mine->Update();
    ExpectOtherReads(kCounter, 0, Value("8"));
    EXPECT_THROW(Other().OpenRecordSet(kCounter, kCounterOptions), DatabaseBusy);
    mine->Close();
    const auto theirs = Other().OpenRecordSet(kCounter, kCounterOptions);
    EXPECT_EQ(theirs->Field(0), Value("8"));
}

TEST_F(Locks, ClosingWithoutUpdateChangesNothing) {
    {
        const auto mine = Account().OpenRecordSet(kCounter, kCounterOptions);
        mine->SetField("cValue", Value("8"));
    }
    EXPECT_EQ(Counter(), "7");
    EXPECT_NO_THROW(Other().OpenRecordSet(kCounter, kCounterOptions));
}

TEST_F(Locks, UpdateOutlastsTheConnection) {
    {
        const auto connection = Connect();
        const auto set = connection->OpenRecordSet(kCounter, kCounterOptions);
        set->SetField("cValue", Value(std::int64_t{9}));
        set->Update();
        connection->Close();
        EXPECT_THROW(set->SetField("cValue", Value("10")); set->Update();, platform::DatabaseError);
    }
    EXPECT_EQ(Counter(), "9");
}

TEST_F(Locks, AHeldReadKeepsOtherWritersOut) {
    Transaction mine(Account());
    const auto row = Account().OpenRecordSet(kEntry, {.lock = LockType::Optimistic});
    EXPECT_THROW(Other().Execute(StatementText("delete from pm_itemQC where iEleVid=1")),
                 DatabaseBusy);
    ExpectOtherReads(kEntry, 0, Value(std::int64_t{1}));
    row->SetField("cDigest", Value("b"));
    row->Update();
    ExpectOtherReads(kEntry, kDigestColumn, Value("a"));
    mine.Commit();
    EXPECT_EQ(Other().OpenRecordSet(kEntry)->Field("cDigest"), Value("b"));
    Other().Execute(StatementText("delete from pm_itemQC where iEleVid=1"));
    EXPECT_EQ(Account().OpenRecordSet(kEntry)->RecordCount(), 0);
}

TEST_F(Locks, RollingBackUndoesEverything) {
    Account().Begin();
    Execute("delete from pm_itemQC");
    const auto counter = Account().OpenRecordSet(kCounter, kCounterOptions);
    counter->SetField("cValue", Value("8"));
    counter->Update();
    Account().RollBack();
    EXPECT_EQ(Rows("select iEleVid from PM_ItemQC"), "1\n");
    EXPECT_EQ(Counter(), "7");
    EXPECT_NO_THROW(Other().OpenRecordSet(kCounter, kCounterOptions));
}

TEST_F(Locks, ATransactionTakesOverTheCountersLock) {
    const auto counter = Account().OpenRecordSet(kCounter, kCounterOptions);
    Account().Begin();
    Execute("update PM_ItemQC set mQC = 11");
    Account().Commit();
    EXPECT_EQ(Other().OpenRecordSet(kEntry)->Field("mQC").ToText(), "11");
    EXPECT_THROW(Other().OpenRecordSet(kCounter, kCounterOptions), DatabaseBusy);
    counter->Close();
    EXPECT_NO_THROW(Other().OpenRecordSet(kCounter, kCounterOptions));
}

TEST_F(Locks, StatementsBesideTheCounterAreDurableAtOnce) {
    const auto counter = Account().OpenRecordSet(kCounter, kCounterOptions);
    Execute("update PM_ItemQC set mQC = 12");
    EXPECT_EQ(ErrorOf([&] { Execute("insert into PM_ItemQC(iEleVid) values(1)"); }), 2627);
    EXPECT_EQ(Other().OpenRecordSet(kEntry)->Field("mQC").ToText(), "12");
    counter->Close();
    EXPECT_EQ(Rows("select mQC from PM_ItemQC"), "12\n");
}

TEST_F(Locks, AnOptimisticRowThatOthersChangedIsRefused) {
    const auto row = Open("select * from PM_ItemQC where iEleVid=1", LockType::Optimistic);
    Other().Execute(StatementText("update PM_ItemQC set cDigest='theirs' where iEleVid=1"));
    row->SetField("mQC", Value(std::int64_t{99}));
    row->Update();
    row->SetField("cDigest", Value("mine"));
    EXPECT_THROW(row->Update(), platform::DatabaseError);
    EXPECT_EQ(Rows("select cDigest,mQC from PM_ItemQC"), "theirs|99\n");
    Other().Execute(StatementText("delete from PM_ItemQC"));
    row->SetField("mQC", Value(std::int64_t{100}));
    EXPECT_THROW(row->Update(), platform::DatabaseError);
}

TEST_F(Locks, TransactionsDoNotNest) {
    Account().Begin();
    EXPECT_THROW(Account().Begin(), platform::DatabaseError);
    Account().RollBack();
    EXPECT_THROW(Account().RollBack(), platform::DatabaseError);
    EXPECT_THROW(Account().Commit(), platform::DatabaseError);
}

TEST_F(Locks, WritingWhatIsThereAlreadyNeedsNoLockOfItsOwn) {
    Execute("Update PM_ItemQC set mQC = 10 where iEleVid = '1'");
    EXPECT_EQ(Rows("select mQC from PM_ItemQC"), "10\n");
    Execute("Update PM_ItemQC set mQC = 10.0001 where iEleVid = '1'");
    EXPECT_EQ(Rows("select mQC from PM_ItemQC"), "10.0001\n");
    Execute("Update PM_ItemQC set cDigest = 'A' where iEleVid = '1'");
    EXPECT_EQ(Rows("select cDigest from PM_ItemQC"), "A\n");
}

}  // namespace
}  // namespace kelvane::database_test
