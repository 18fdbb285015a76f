#include "adapters/com/ado_connection.h"

#include <gtest/gtest.h>

#include "tests/windows/unit/fake_ado.h"

namespace kelvane::com {
namespace {

using platform::StatementText;
using windows_test::FakeAdo;
using windows_test::FakeError;
using Calls = std::vector<std::string>;

const FakeError kDeadlock{"deadlock victim", 1205, "40001"};
const FakeError kGone{"[Driver]link failure", 10054, "08S01"};

class AdoConnectionTest : public testing::Test {
protected:
    AdoConnectionTest() {
        connection.SetConnectionString("Server=x;PWD=secret");
        connection.Open("", "", -1);
        ado.done.clear();
    }
    void Run() { connection.Execute(StatementText("delete from PM_ItemQC")); }

    FakeAdo ado;
    AdoConnection connection{
        std::make_shared<AdoSession>(DispatchObject(ado.connection.Pointer(), "ADODB.Connection"))};
};

TEST_F(AdoConnectionTest, HandsStatementsOnAsTheyAre) {
    Run();
    EXPECT_EQ(ado.statements, Calls{"delete from PM_ItemQC"});
}

TEST_F(AdoConnectionTest, TellsTheDatabasesOwnErrorAndCode) {
    ado.Fail("Execute", {"[Vendor][Driver]约束 secret", 547, "23000"});
    try {
        Run();
        FAIL();
    } catch (const platform::DatabaseError& error) {
        EXPECT_STREQ(error.what(), "约束 ***");
        EXPECT_EQ(error.NativeCode(), 547);
    }
}

TEST_F(AdoConnectionTest, SeesTheErrorOfALaterStatement) {
    ado.results = 3;
    Run();
    EXPECT_EQ(ado.done, (Calls{"Execute", "NextRecordset", "NextRecordset", "NextRecordset"}));
    ado.results = 3;
    ado.Fail("NextRecordset", {"约束", 547, "23000"});
    EXPECT_THROW(Run(), platform::DatabaseError);
}

TEST_F(AdoConnectionTest, ABatchEndsWhereTheProviderHasNoFurtherResult) {
    for (const unsigned long code : {0x800A0CB3UL, 0x800A0E78UL}) {
        ado.results = 1;
        ado.Fail("NextRecordset", {"no", 0, "", static_cast<HRESULT>(code)});
        EXPECT_NO_THROW(Run());
    }
}

TEST_F(AdoConnectionTest, TransactionsDoNotNest) {
    connection.Begin();
    EXPECT_THROW(connection.Begin(), platform::DatabaseError);
    connection.Commit();
    EXPECT_THROW(connection.Commit(), platform::DatabaseError);
    EXPECT_THROW(connection.RollBack(), platform::DatabaseError);
    EXPECT_EQ(ado.done, (Calls{"BeginTrans", "CommitTrans"}));
}

TEST_F(AdoConnectionTest, ASnapshotKeepsWritersOutAndChangesNothing) {
    {
        const platform::Snapshot snapshot(connection);
        EXPECT_THROW(Run(), platform::DatabaseError);
        EXPECT_THROW(connection.Begin(), platform::DatabaseError);
    }
    EXPECT_NO_THROW(Run());
    EXPECT_EQ(ado.done, (Calls{"isolation 1048576", "BeginTrans", "isolation 4096", "RollbackTrans",
                               "Execute"}));
}

TEST_F(AdoConnectionTest, ADeadlockEndsTheTransaction) {
    connection.Begin();
    ado.Fail("Execute", kDeadlock);
    EXPECT_THROW(Run(), platform::DatabaseBusy);
    EXPECT_THROW(Run(), platform::DatabaseError);
    ado.Fail("RollbackTrans", {"no transaction", 3903, "25000"});
    EXPECT_NO_THROW(connection.RollBack());
    EXPECT_NO_THROW(Run());
    EXPECT_EQ(ado.done, (Calls{"BeginTrans", "Execute", "RollbackTrans", "Execute"}));
}

TEST_F(AdoConnectionTest, ACommitWhoseAnswerWasLostIsInDoubt) {
    connection.Begin();
    ado.Fail("CommitTrans", kGone);
    EXPECT_THROW(connection.Commit(), platform::CommitInDoubt);
}

TEST_F(AdoConnectionTest, ARefusedCommitIsRolledBack) {
    connection.Begin();
    ado.Fail("CommitTrans", {"refused", 547, "23000"});
    EXPECT_THROW(connection.Commit(), platform::DatabaseError);
    EXPECT_EQ(ado.done, (Calls{"BeginTrans", "CommitTrans", "RollbackTrans"}));
}

TEST_F(AdoConnectionTest, OpensALostConnectionAgainOutsideATransaction) {
    ado.Fail("Execute", kGone);
    EXPECT_THROW(Run(), platform::ConnectionLost);
    EXPECT_NO_THROW(Run());
    EXPECT_EQ(ado.done, (Calls{"Execute", "Close", "Open", "Execute"}));
}

TEST_F(AdoConnectionTest, ATransactionIsLostWithItsConnection) {
    connection.Begin();
    ado.Fail("Execute", kGone);
    EXPECT_THROW(Run(), platform::ConnectionLost);
    EXPECT_THROW(Run(), platform::ConnectionLost);
    EXPECT_THROW(connection.Commit(), platform::ConnectionLost);
    EXPECT_NO_THROW(Run());
    EXPECT_EQ(ado.done,
              (Calls{"BeginTrans", "Execute", "RollbackTrans", "Close", "Open", "Execute"}));
}

TEST_F(AdoConnectionTest, ThePasswordBesideTheStringIsNotShownEither) {
    connection.Open("sa", "own}word", -1);
    ado.Fail("Execute", {"no secret, no own}word", 1, "42000"});
    try {
        Run();
        FAIL();
    } catch (const platform::DatabaseError& error) {
        EXPECT_STREQ(error.what(), "no ***, no ***");
    }
}

TEST_F(AdoConnectionTest, AFailedOpeningSaysWhyWithoutThePassword) {
    ado.Fail("Open", {"[Driver]登录失败 secret", 18456, "28000"});
    try {
        connection.Open("", "", -1);
        FAIL();
    } catch (const platform::DatabaseError& error) {
        EXPECT_STREQ(error.what(), "不能连接帐套数据库：登录失败 ***");
        EXPECT_EQ(error.NativeCode(), 18456);
    }
}

}  // namespace
}  // namespace kelvane::com
