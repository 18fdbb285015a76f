// What the tests of the account database share: an account of the test's own on whatever engine the
// program was built for, connections to it, and short ways to look into it.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/database.h"

namespace kelvane::database_test {

struct Column {
    std::string name;
    std::string type;  // in the dialect
    bool nullable = true;
};

struct Table {
    std::string name;
    std::vector<Column> columns;
    std::vector<std::string> key;
    std::vector<std::vector<std::string>> indexes;
};

// The engine under test: an account that lives as long as this object.
class Engine {
public:
    virtual ~Engine() = default;
    // An open connection whose statements wait for others' locks for at most `timeout`
    // milliseconds.
    virtual std::shared_ptr<platform::Connection> Connect(int timeout) = 0;
};

// Each engine's program has its own: creates an account with exactly these tables.
std::unique_ptr<Engine> MakeEngine(const std::vector<Table>& tables);

// The component's tables, fitemss97sub with the key columns cKeyA and cKeyB (text) and iKeyN (int),
// and the table Probe, which has a column of every type.
std::vector<Table> TestTables();

class AccountTest : public ::testing::Test {
protected:
    static constexpr int kTimeout = 50;

    AccountTest();

    platform::Connection& Account() { return *mConnection; }
    // Another operator's.
    std::shared_ptr<platform::Connection> Connect() { return mEngine->Connect(kTimeout); }

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
    // All rows as text, one a line, fields joined by "|", Null as "NULL".
    std::string Rows(const platform::StatementText& statement);
    std::string Rows(platform::FixedText statement) {
        return Rows(platform::StatementText(statement));
    }

private:
    std::unique_ptr<Engine> mEngine;
    std::shared_ptr<platform::Connection> mConnection;
};

// The native code of the DatabaseError that `action` throws; 0 when it throws none.
int ErrorOf(const std::function<void()>& action);
// Its text; empty when it throws none.
std::string TextOfError(const std::function<void()>& action);

}  // namespace kelvane::database_test
