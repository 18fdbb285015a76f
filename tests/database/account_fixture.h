// What the tests of the account database share: an account of the test's own on whatever engine
// the tests are run for, connections to it, and short ways to look into it.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/database.h"
#include "tests/database/failure_of.h"
#include "tests/support/test_place.h"

namespace kelvane::database_test {

using support::EngineKind;

// Has the component's tables, fitemss97sub with the key columns cKeyA and cKeyB (text) and iKeyN
// (int), and the tables Probe and Coded.
class AccountTest : public ::testing::Test {
protected:
    static constexpr int kTimeout = 50;

    AccountTest();

    EngineKind Engine() const { return mPlace->Engine(); }
    platform::Connection& Account() { return *mConnection; }
    // Another operator's, who waits for locks for at most `timeout` milliseconds.
    std::shared_ptr<platform::Connection> Connect(int timeout = kTimeout) const;

    // Whether the account's own server reads the dialect, and not our translation of it. Such a
    // server takes more than the component's statements need and has words of its own.
    bool IsNative() const { return Engine() == EngineKind::SqlServer; }
    // For the tests that do not hold on every such server.
    bool KeepsToTheDialect() const { return mPlace->KeepsToTheDialect(); }
    // The action fails with the dialect's number or text. Of a server that reads the dialect by
    // itself only the failure is asked, and the numbers that the component's statements meet.
    void ExpectFailure(int number, const std::function<void()>& action) const;
    void ExpectFailure(std::string_view text, const std::function<void()>& action) const;

    // A statement is a text in the source, or one that was put together.
    void Execute(const platform::StatementText& statement) { mConnection->Execute(statement); }
    void Execute(platform::FixedText statement) { Execute(platform::StatementText(statement)); }
    std::unique_ptr<platform::RecordSet> Open(
        const platform::StatementText& statement,
        platform::LockType lock = platform::LockType::ReadOnly);
    std::unique_ptr<platform::RecordSet> Open(
        platform::FixedText statement, platform::LockType lock = platform::LockType::ReadOnly) {
        return Open(platform::StatementText(statement), lock);
    }
    // The first field of the only row.
    platform::Value One(const platform::StatementText& statement);
    platform::Value One(platform::FixedText statement) {
        return One(platform::StatementText(statement));
    }
    // All rows as text, one a line, fields joined by "|", Null as "NULL". The test fails for many
    // rows without an "order by", which come in whatever order the server likes.
    std::string Rows(const platform::StatementText& statement);
    std::string Rows(platform::FixedText statement) {
        return Rows(platform::StatementText(statement));
    }
    // The same for a statement without an order, the lines sorted by their bytes.
    std::string SortedRows(const platform::StatementText& statement);
    std::string SortedRows(platform::FixedText statement) {
        return SortedRows(platform::StatementText(statement));
    }

private:
    std::vector<std::string> Lines(const platform::StatementText& statement);

    std::unique_ptr<support::TestPlace> mPlace;
    std::shared_ptr<platform::Connection> mConnection;
};

// For what a server that reads the dialect may do in its own way, without harm to the component's
// statements.
class ExactDialectTest : public AccountTest {
protected:
    void SetUp() override {
        if (!KeepsToTheDialect()) GTEST_SKIP() << "a server with ways of its own";
    }
};

}  // namespace kelvane::database_test
