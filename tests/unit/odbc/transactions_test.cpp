// Transactions: what is asked of the driver, and what failures leave behind.
#include "tests/unit/odbc/server_fixture.h"

namespace kelvane::odbc {
namespace {

using platform::CommitInDoubt;
using platform::ConnectionLost;
using platform::DatabaseBusy;
using platform::DatabaseError;
using platform::Transaction;
using platform::Value;

class Transactions : public ServerTest {
protected:
    void ExpectFreshStatement() { EXPECT_NO_THROW(Execute("after")); }
};

constexpr const char* kAfter = "\nrun after\ncount 1";

TEST_F(Transactions, AreTheDrivers) {
    Open("run x\ncount 1\nrun y\ncount 1");
    Server().Begin();
    Execute("x");
    Server().Commit();
    Server().Begin();
    Execute("y");
    Server().RollBack();
    EXPECT_EQ(Log(),
              "autocommit off\nrun x\ncommit\nautocommit on\n"
              "autocommit off\nrun y\nrollback\nautocommit on\n");
}

TEST_F(Transactions, DoNotNest) {
    Open("");
    EXPECT_EQ(TextOf<DatabaseError>([&] { Server().Commit(); }), "There is no transaction.");
    EXPECT_EQ(TextOf<DatabaseError>([&] { Server().RollBack(); }), "There is no transaction.");
    Server().Begin();
    EXPECT_EQ(TextOf<DatabaseError>([&] { Server().Begin(); }), "A transaction is open already.");
    Server().RollBack();
}

TEST_F(Transactions, OutliveAFailedStatement) {
    Open(
        "run x\nerror 23000 2627 duplicate\nrun select @@trancount\ncolumns - INTEGER\nrow 1\n"
        "run y\ncount 1");
    Server().Begin();
    EXPECT_THROW(Execute("x"), DatabaseError);
    Execute("y");
    Server().Commit();
    EXPECT_EQ(Log(),
              "autocommit off\nrun x\nrun select @@trancount\nrun y\ncommit\nautocommit on\n");
}

TEST_F(Transactions, AreNotGoneBecauseTheServerDoesNotCountThem) {
    Open(
        "run x\nerror 23000 2627 duplicate\nrun select @@trancount\nerror 42000 137 what\n"
        "run y\ncount 1");
    Server().Begin();
    EXPECT_THROW(Execute("x"), DatabaseError);
    Execute("y");
    EXPECT_NO_THROW(Server().Commit());
}

// Some errors make the server undo the transaction; nothing that was meant to be part of it may be
// kept then.
TEST_F(Transactions, ThatTheServerHasUndoneTakeNothingMore) {
    Open(std::string("run x\nerror 22018 245 no number\nrun select @@trancount\n"
                     "columns - INTEGER\nrow 0") +
         kAfter);
    Server().Begin();
    EXPECT_EQ(TextOf<DatabaseError>([&] { Execute("x"); }), "no number");
    EXPECT_EQ(TextOf<DatabaseError>([&] { Execute("y"); }),
              "The transaction was undone by an earlier error.");
    EXPECT_EQ(TextOf<DatabaseError>([&] { Server().Commit(); }),
              "The transaction was undone by an earlier error.");
    ExpectFreshStatement();
    EXPECT_EQ(
        Log(),
        "autocommit off\nrun x\nrun select @@trancount\nrollback\nautocommit on\nrun after\n");
}

TEST_F(Transactions, OfADeadlocksVictimAreGone) {
    Open(std::string("run x\nerror 40001 1205 [A][B]Transaction was deadlocked.") + kAfter);
    Server().Begin();
    EXPECT_EQ(TextOf<DatabaseBusy>([&] { Execute("x"); }),
              "与其他操作员的操作冲突，本次操作已经撤销，请重试（Transaction was deadlocked.）");
    EXPECT_THROW(Execute("y"), DatabaseError);
    EXPECT_NO_THROW(Server().RollBack());
    ExpectFreshStatement();
    EXPECT_EQ(Log(), "autocommit off\nrun x\nrollback\nautocommit on\nrun after\n");
}

// The driver may hold it against the server that there is nothing left to roll back.
TEST_F(Transactions, OfADeadlocksVictimAreGoneForTheDriverToo) {
    Open(std::string("run x\nerror 40001 1205 deadlock\nrollback 25000 3903 no transaction") +
         kAfter);
    Server().Begin();
    EXPECT_THROW(Execute("x"), DatabaseBusy);
    EXPECT_EQ(TextOf<DatabaseError>([&] { Execute("y"); }),
              "The transaction was undone by an earlier error.");
    EXPECT_NO_THROW(Server().RollBack());
    ExpectFreshStatement();
    EXPECT_EQ(Driver().Left(), 0);
}

TEST_F(Transactions, StayOpenAfterATimeOut) {
    Open(
        "run x\nerror HYT00 0 Query timeout expired\nrun select @@trancount\n"
        "columns - INTEGER\nrow 1\nrun y\ncount 1");
    Server().Begin();
    EXPECT_EQ(TextOf<DatabaseBusy>([&] { Execute("x"); }),
              "数据库正被其他操作员使用，请稍后再试（Query timeout expired）");
    EXPECT_NO_THROW(Execute("y"));
    EXPECT_NO_THROW(Server().Commit());
}

// A server on another engine has its own number for it, and keeps the transaction.
TEST_F(Transactions, StayOpenAfterALockTimeOutInAnotherEnginesWords) {
    Open(
        "run x\nerror HY000 33557097 [A]canceling statement due to lock timeout\n"
        "run select @@trancount\ncolumns - INTEGER\nrow 1\nrun y\ncount 1");
    Server().Begin();
    EXPECT_EQ(TextOf<DatabaseBusy>([&] { Execute("x"); }),
              "数据库正被其他操作员使用，请稍后再试（canceling statement due to lock timeout）");
    EXPECT_NO_THROW(Execute("y"));
    EXPECT_NO_THROW(Server().Commit());
}

TEST_F(Transactions, LockTimeOutsMeanBusy) {
    Open("run x\nerror HY000 1222 Lock request time out period exceeded.");
    EXPECT_THROW(Execute("x"), DatabaseBusy);
}

TEST_F(Transactions, OfALostConnectionFailUntilTheyAreRolledBack) {
    Open(std::string("run x\nerror 08S01 20006 [A][B]Write to the server failed\ndies\n"
                     "always set lock_timeout 5000") +
         kAfter);
    Server().Begin();
    EXPECT_EQ(TextOf<ConnectionLost>([&] { Execute("x"); }),
              "与数据库服务器的连接已经断开（Write to the server failed）");
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(TextOf<ConnectionLost>([&] { Execute("after"); }),
                  "与数据库服务器的连接已经断开，本次操作没有保存");
    }
    EXPECT_NO_THROW(Server().RollBack());
    ExpectFreshStatement();
    EXPECT_EQ(Driver().Left(), 0);
    EXPECT_EQ(Server().State(), platform::kStateOpen);
}

TEST_F(Transactions, OfALostConnectionAreNotCommitted) {
    Open(std::string("run x\nerror 08S01 20006 gone\ndies") + kAfter);
    Server().Begin();
    EXPECT_THROW(Execute("x"), ConnectionLost);
    EXPECT_THROW(Server().Commit(), ConnectionLost);
    ExpectFreshStatement();
}

TEST_F(Transactions, ScopesRollBackWhatIsLeft) {
    Open(std::string("run x\nerror 08S01 20006 gone\ndies") + kAfter);
    EXPECT_THROW(
        {
            Transaction transaction(Server());
            Execute("x");
        },
        ConnectionLost);
    ExpectFreshStatement();
}

// The driver knows that the connection is dead before the commit is sent: nothing is in doubt.
TEST_F(Transactions, OfAConnectionFoundDeadAreNotInDoubt) {
    Open(std::string("run x\ncount 1\ndies") + kAfter);
    Server().Begin();
    Execute("x");
    EXPECT_THROW(Server().Commit(), ConnectionLost);
    EXPECT_THAT(Log(), testing::Not(testing::HasSubstr("commit\n")));
    ExpectFreshStatement();
}

TEST_F(Transactions, WithoutAnAnswerAreInDoubt) {
    for (const char* error : {"08S01 20006", "08007 0", "HYT00 0", "HYT01 0"}) {
        Open("run x\ncount 1\ncommit " + std::string(error) + " [A]no answer" + kAfter);
        Server().Begin();
        Execute("x");
        EXPECT_EQ(TextOf<CommitInDoubt>([&] { Server().Commit(); }),
                  "保存时与数据库服务器的连接断开，保存结果无法确认（no answer）")
            << error;
        EXPECT_THROW(Server().RollBack(), DatabaseError);
        ExpectFreshStatement();
        EXPECT_EQ(Driver().Left(), 0) << error;
    }
}

TEST_F(Transactions, WhoseCommitIsRefusedAreNotSaved) {
    Open(std::string("run x\ncount 1\ncommit 40001 1205 deadlock") + kAfter);
    Server().Begin();
    Execute("x");
    EXPECT_THROW(Server().Commit(), DatabaseBusy);
    ExpectFreshStatement();
    EXPECT_EQ(Log(), "autocommit off\nrun x\ncommit\nrollback\nautocommit on\nrun after\n");
}

TEST_F(Transactions, LeftOpenAreUndoneWithTheConnection) {
    Open("run x\ncount 1");
    Server().Begin();
    Execute("x");
    Server().Close();
    EXPECT_THAT(Log(), testing::EndsWith("disconnect\n"));
    EXPECT_THAT(Log(), testing::Not(testing::HasSubstr("commit\n")));
}

TEST_F(Transactions, StatementsAfterALossConnectAgain) {
    mMore = ";Server=s";
    mUser = "sa";
    mPassword = "secret";
    Open(
        "run x\nerror 08S01 20006 gone\ndies\n"
        "refuse 08001 17 [A]no server, secret\n"
        "run select 1\ncolumns - INTEGER\nrow 1");
    EXPECT_THROW(Execute("x"), ConnectionLost);
    EXPECT_EQ(TextOf<ConnectionLost>([&] { Query("select 1"); }),
              "与数据库服务器的连接已经断开，暂时无法重新连接（no server, ***）");
    EXPECT_EQ(Query("select 1")->Field(0), Value(std::int64_t{1}));
    const std::string again = "login timeout 15\nconnect " + Driver().ConnectionString() +
                              ";Server=s;UID=sa;PWD=secret;\n";
    EXPECT_THAT(Log(), testing::HasSubstr("disconnect\n" + again + again +
                                          "query timeout 60\n"
                                          "run set lock_timeout 5000\nrun select 1\n"));
}

TEST_F(Transactions, BeginConnectsAgain) {
    Open(std::string("run x\nerror 08S01 20006 gone\ndies") + kAfter);
    EXPECT_THROW(Execute("x"), ConnectionLost);
    Server().Begin();
    Execute("after");
    EXPECT_NO_THROW(Server().Commit());
}

constexpr const char* kVersions =
    "run select snapshot_isolation_state from sys.databases where name = db_name()";
constexpr const char* kBack = "run set transaction isolation level read committed";

TEST_F(Transactions, ThatSeeOneMomentUseRowVersions) {
    Open(std::string(kVersions) + "\ncolumns - INTEGER\nrow 1\n" +
         "run set transaction isolation level snapshot\nrun select 1\ncolumns - INTEGER\nrow 1\n" +
         kBack);
    {
        const platform::Snapshot snapshot(Server());
        EXPECT_EQ(Query("select 1")->RecordCount(), 1);
    }
    EXPECT_EQ(Log(), std::string(kVersions) +
                         "\nrun set transaction isolation level snapshot\nautocommit off\n"
                         "run select 1\nrollback\nautocommit on\n" +
                         kBack + "\n");
    EXPECT_EQ(Driver().Left(), 0);
}

TEST_F(Transactions, ThatSeeOneMomentKeepWritersOutWhereThereAreNoRowVersions) {
    for (const char* answer : {"columns - INTEGER\nrow 0", "columns - INTEGER",
                               "error 42S02 208 Invalid object name 'sys.databases'."}) {
        Open(std::string(kVersions) + "\n" + answer +
             "\nrun set transaction isolation level serializable\n" + kBack);
        { const platform::Snapshot snapshot(Server()); }
        EXPECT_EQ(Log(), std::string(kVersions) +
                             "\nrun set transaction isolation level serializable\n"
                             "autocommit off\nrollback\nautocommit on\n" +
                             kBack + "\n")
            << answer;
    }
}

// A session that would go on locking what it reads is not kept.
TEST_F(Transactions, ThatSeeOneMomentLeaveNoSessionBehindThatDoesSo) {
    Open(std::string(kVersions) +
         "\ncolumns - INTEGER\nrow 0\nrun set transaction isolation level serializable\n" + kBack +
         "\nerror HYT00 0 Query timeout expired\nalways set lock_timeout 5000" + kAfter);
    { const platform::Snapshot snapshot(Server()); }
    EXPECT_THAT(Log(), testing::EndsWith(std::string(kBack) + "\ndisconnect\n"));
    ExpectFreshStatement();
}

TEST_F(Transactions, ThatSeeOneMomentSendNoChangeAndNoLock) {
    Open(std::string(kVersions) +
         "\ncolumns - INTEGER\nrow 0\nrun set transaction isolation level serializable\n"
         "run select * from T with (HOLDLOCK) where i=1\ncolumns i INTEGER\nrow 1\n" +
         kBack);
    {
        const platform::Snapshot snapshot(Server());
        const std::string refused =
            "The transaction only reads: nothing can be changed or locked in it.";
        EXPECT_EQ(TextOf<DatabaseError>([&] { Execute("delete from T"); }), refused);
        EXPECT_EQ(TextOf<DatabaseError>(
                      [&] { Query("select i from T", platform::LockType::Pessimistic); }),
                  refused);
        const auto rows =
            Query("select * from T with (HOLDLOCK) where i=1", platform::LockType::Optimistic);
        EXPECT_EQ(TextOf<DatabaseError>([&] { rows->SetField("i", Value(std::int64_t{2})); }),
                  "The record set or the column 'i' cannot be changed.");
    }
    EXPECT_EQ(Driver().Left(), 0);
}

}  // namespace
}  // namespace kelvane::odbc
