#include "platform/connection_wrapper.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace kelvane::platform {
namespace {

using testing::ElementsAre;

// Keeps every call with what it was given.
class NotingConnection : public Connection {
public:
    std::vector<std::string> calls;

    void SetConnectionString(std::string_view text) override {
        calls.push_back("string " + std::string(text));
    }
    void SetCursorLocation(CursorLocation location) override {
        calls.push_back("location " + std::to_string(static_cast<int>(location)));
    }
    void Open(std::string_view user, std::string_view password, int options) override {
        calls.push_back("open " + std::string(user) + '/' + std::string(password) + '/' +
                        std::to_string(options));
    }
    void Close() override { calls.emplace_back("close"); }
    int State() const override { return 6; }
    void ReadAhead(std::span<const StatementText> queries,
                   const RecordSetOptions& options) override {
        calls.push_back("ahead " + std::to_string(queries.size()) + ' ' +
                        std::to_string(static_cast<int>(options.lock)));
    }
    void AnnounceChanges(ChangeBehind changeOf) override {
        calls.push_back("behind " + changeOf(3, Value("a")).Text());
    }
    void Begin() override { calls.emplace_back("begin"); }
    void Commit() override { calls.emplace_back("commit"); }
    void RollBack() override { calls.emplace_back("roll back"); }
    void BeginSnapshot() override { calls.emplace_back("begin snapshot"); }

protected:
    void DoExecute(const std::string& statement) override {
        if (statement == "bad") throw DatabaseError("refused", 7);
        calls.push_back("execute " + statement);
    }
    std::unique_ptr<RecordSet> DoOpenRecordSet(const std::string& statement,
                                               const RecordSetOptions& options) override {
        calls.push_back("query " + statement + ' ' +
                        std::to_string(static_cast<int>(options.lock)));
        return nullptr;
    }
};

TEST(ConnectionWrapper, HandsEverythingOn) {
    const auto inner = std::make_shared<NotingConnection>();
    ConnectionWrapper wrapper(inner);
    const std::vector<StatementText> next{StatementText("select 1"), StatementText("select 2")};
    wrapper.SetConnectionString("account");
    wrapper.SetCursorLocation(CursorLocation::Client);
    wrapper.Open("u", "p", -1);
    wrapper.ReadAhead(next, {.lock = LockType::Optimistic});
    wrapper.AnnounceChanges([](std::size_t query, const Value& first) {
        StatementText change("update T ");
        return change.Number(static_cast<std::int64_t>(query)).Inside(first.ToText());
    });
    wrapper.Begin();
    wrapper.Execute(StatementText("delete from T "));
    wrapper.OpenRecordSet(StatementText("select  1"), {.lock = LockType::Pessimistic});
    wrapper.Commit();
    wrapper.RollBack();
    wrapper.BeginSnapshot();
    EXPECT_EQ(wrapper.State(), 6);
    wrapper.Close();
    EXPECT_THAT(inner->calls,
                ElementsAre("string account", "location 3", "open u/p/-1", "ahead 2 3",
                            "behind update T 3a", "begin", "execute delete from T ",
                            "query select  1 2", "commit", "roll back", "begin snapshot", "close"));
}

TEST(ConnectionWrapper, TellsTheErrorsOfWhatItStandsFor) {
    ConnectionWrapper wrapper(std::make_shared<NotingConnection>());
    try {
        wrapper.Execute(StatementText("bad"));
        ADD_FAILURE() << "no error";
    } catch (const DatabaseError& error) {
        EXPECT_EQ(error.NativeCode(), 7);
    }
}

}  // namespace
}  // namespace kelvane::platform
