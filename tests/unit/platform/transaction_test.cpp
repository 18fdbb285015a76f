#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/database.h"

namespace kelvane::platform {
namespace {

// A connection whose transaction statements can be made to fail.
class FailingConnection : public Connection {
public:
    std::vector<std::string> calls;
    bool commitFails = false;
    bool rollBackFails = false;
    bool snapshotFails = false;

    void SetConnectionString(std::string_view) override {}
    void SetCursorLocation(CursorLocation) override {}
    void Open(std::string_view, std::string_view, int) override {}
    void Close() override {}
    int State() const override { return kStateOpen; }
    void Begin() override { calls.emplace_back("begin"); }
    void Commit() override {
        calls.emplace_back("commit");
        if (commitFails) throw DatabaseBusy("busy");
    }
    void RollBack() override {
        calls.emplace_back("roll back");
        if (rollBackFails) throw ConnectionLost("gone");
    }
    void BeginSnapshot() override {
        calls.emplace_back("begin snapshot");
        if (snapshotFails) throw ConnectionLost("gone");
    }

protected:
    void DoExecute(const std::string& statement) override { calls.push_back(statement); }
    std::unique_ptr<RecordSet> DoOpenRecordSet(const std::string& statement,
                                               const RecordSetOptions&) override {
        throw DatabaseError("no rows for " + statement);
    }
};

using Calls = std::vector<std::string>;

TEST(Transaction, LeavingTheScopeRollsBack) {
    FailingConnection connection;
    { const Transaction transaction(connection); }
    EXPECT_EQ(connection.calls, (Calls{"begin", "roll back"}));
}

TEST(Transaction, CommitEndsIt) {
    FailingConnection connection;
    {
        Transaction transaction(connection);
        transaction.Commit();
    }
    EXPECT_EQ(connection.calls, (Calls{"begin", "commit"}));
}

TEST(Transaction, RollBackEndsItAndTellsItsError) {
    FailingConnection connection;
    connection.rollBackFails = true;
    {
        Transaction transaction(connection);
        EXPECT_THROW(transaction.RollBack(), ConnectionLost);
    }
    EXPECT_EQ(connection.calls, (Calls{"begin", "roll back"}));
}

TEST(Transaction, AFailedCommitIsRolledBack) {
    FailingConnection connection;
    connection.commitFails = true;
    {
        Transaction transaction(connection);
        EXPECT_THROW(transaction.Commit(), DatabaseBusy);
    }
    EXPECT_EQ(connection.calls, (Calls{"begin", "commit", "roll back"}));
}

TEST(Transaction, TheEndOfTheScopeThrowsNothing) {
    FailingConnection connection;
    connection.rollBackFails = true;
    EXPECT_NO_THROW({ const Transaction transaction(connection); });
}

TEST(Connection, AMalformedStatementDoesNotReachIt) {
    FailingConnection connection;
    StatementText statement("delete from t where c='");
    statement.Inside("x' or 1=1 --") << "'";
    EXPECT_THROW(connection.Execute(statement), MalformedStatement);
    EXPECT_THROW((void)connection.OpenRecordSet(statement), MalformedStatement);
    EXPECT_EQ(connection.calls, Calls{});
}

TEST(Snapshot, LeavingTheScopeRollsBack) {
    FailingConnection connection;
    { const Snapshot snapshot(connection); }
    EXPECT_EQ(connection.calls, (Calls{"begin snapshot", "roll back"}));
}

TEST(Snapshot, OneWithinAnotherSeesTheSameMoment) {
    FailingConnection connection;
    {
        const Snapshot outer(connection);
        { const Snapshot inner(connection); }
        EXPECT_EQ(connection.calls, (Calls{"begin snapshot"}));
    }
    { const Snapshot next(connection); }
    EXPECT_EQ(connection.calls,
              (Calls{"begin snapshot", "roll back", "begin snapshot", "roll back"}));
}

TEST(Snapshot, OneThatDoesNotBeginEndsNothing) {
    FailingConnection connection;
    connection.snapshotFails = true;
    EXPECT_THROW(Snapshot snapshot(connection), ConnectionLost);
    connection.snapshotFails = false;
    { const Snapshot next(connection); }
    EXPECT_EQ(connection.calls, (Calls{"begin snapshot", "begin snapshot", "roll back"}));
}

TEST(Snapshot, EndsQuietlyWithItsConnection) {
    FailingConnection connection;
    connection.rollBackFails = true;
    EXPECT_NO_THROW(const Snapshot snapshot(connection));
    EXPECT_EQ(connection.calls, (Calls{"begin snapshot", "roll back"}));
}

}  // namespace
}  // namespace kelvane::platform
