#include "adapters/drive/statement_log.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kelvane::drive {
namespace {

using platform::StatementText;
using testing::ElementsAre;
using testing::IsEmpty;

// A connection that remembers its calls; it stands for an engine behind the recording one.
class RememberingConnection : public platform::Connection {
public:
    std::vector<std::string> calls;

    void SetConnectionString(std::string_view text) override {
        Note("string " + std::string(text));
    }
    void SetCursorLocation(platform::CursorLocation location) override {
        Note("location " + std::to_string(static_cast<int>(location)));
    }
    void Open(std::string_view user, std::string_view password, int options) override {
        Note("open " + std::string(user) + "/" + std::string(password) + "/" +
             std::to_string(options));
    }
    void Close() override { Note("close"); }
    int State() const override { return platform::kStateOpen; }
    void Begin() override { Note("begin"); }
    void Commit() override { Note("commit"); }
    void RollBack() override { Note("roll back"); }
    void BeginSnapshot() override { Note("begin snapshot"); }

protected:
    void DoExecute(const std::string& statement) override {
        if (statement == "bad") throw platform::DatabaseError("refused by the engine", 7);
        Note("execute " + statement);
    }
    std::unique_ptr<platform::RecordSet> DoOpenRecordSet(
        const std::string& statement, const platform::RecordSetOptions& options) override {
        Note("query " + statement + " " + std::to_string(static_cast<int>(options.lock)));
        return nullptr;
    }

private:
    void Note(const std::string& call) { calls.push_back(call); }
};

class RememberingDataAccess : public platform::HostDataAccess {
public:
    std::vector<std::string> calls;

protected:
    std::unique_ptr<platform::RecordSet> DoQuery(const std::string& statement,
                                                 int option) override {
        calls.push_back(statement + " " + std::to_string(option));
        return nullptr;
    }
};

TEST(StatementLog, NotesWhatReachesTheDatabaseWithItsPath) {
    StatementLog log;
    auto engine = std::make_shared<RememberingConnection>();
    RememberingDataAccess hostAccess;
    RecordingConnection connection(engine, log);
    RecordingDataAccess access(hostAccess, log);

    connection.Execute(StatementText("delete from T "));
    access.Query(StatementText("select  1"));
    connection.OpenRecordSet(StatementText("select 2"), {.lock = platform::LockType::Pessimistic});

    EXPECT_THAT(log.Take(),
                ElementsAre("gConn delete from T ", "gEnv select  1", "gConn select 2"));
    EXPECT_THAT(log.Take(), IsEmpty());
    EXPECT_THAT(engine->calls, ElementsAre("execute delete from T ", "query select 2 2"));
    EXPECT_THAT(hostAccess.calls, ElementsAre("select  1 2"));
}

TEST(StatementLog, AMalformedStatementIsNotNotedAndAFailedOneIs) {
    StatementLog log;
    auto engine = std::make_shared<RememberingConnection>();
    RecordingConnection connection(engine, log);

    StatementText malformed("select '");
    malformed.Inside("a'b") << "'";
    EXPECT_THROW(connection.Execute(malformed), platform::MalformedStatement);
    EXPECT_THROW(connection.Execute(StatementText("bad")), platform::DatabaseError);

    EXPECT_THAT(log.Take(), ElementsAre("gConn bad"));
    EXPECT_THAT(engine->calls, IsEmpty());
}

TEST(StatementLog, EverythingElseGoesStraightToTheConnection) {
    StatementLog log;
    auto engine = std::make_shared<RememberingConnection>();
    RecordingConnection connection(engine, log);
    connection.SetConnectionString("account");
    connection.SetCursorLocation(platform::CursorLocation::Client);
    connection.Open("u", "p", -1);
    connection.Begin();
    connection.Commit();
    connection.RollBack();
    connection.Close();
    EXPECT_EQ(connection.State(), platform::kStateOpen);
    EXPECT_THAT(engine->calls, ElementsAre("string account", "location 3", "open u/p/-1", "begin",
                                           "commit", "roll back", "close"));
    EXPECT_THAT(log.Take(), IsEmpty());
}

TEST(StatementLog, WhatIsReadAsideIsLeftOut) {
    StatementLog log;
    const auto inner = std::make_shared<RememberingConnection>();
    RecordingConnection connection(inner, log);
    {
        const platform::Aside aside;
        connection.OpenRecordSet(StatementText("select 1"));
    }
    connection.OpenRecordSet(StatementText("select 2"));
    EXPECT_THAT(log.Take(), ElementsAre("gConn select 2"));
    EXPECT_EQ(inner->calls.size(), 2U);
}

}  // namespace
}  // namespace kelvane::drive
