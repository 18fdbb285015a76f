// Where a test's account lies: on the engine that this run of the tests is for. The tests are
// compiled once; what engines differ in when a test begins and ends is here.
//
// The environment variable KELVANE_TEST_DATABASE names the engine:
//   sqlite      a file in a folder of the test's own (also when the variable is not set)
//   postgresql  a database of the test's own on the server that KELVANE_TEST_POSTGRES names by
//               its connection string
//   postgresql@FILE
//               the same, with the connection string in a file
//   otherwise   an ODBC connection string: the database there is used by one test after the other.
//               It has to be empty or the tests' own from an earlier run.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "adapters/tsql/language/table_description.h"
#include "platform/database.h"

namespace kelvane::support {

enum class EngineKind { Sqlite, PostgreSql, SqlServer };

class TestPlace {
public:
    virtual ~TestPlace() = default;
    TestPlace() = default;
    TestPlace(const TestPlace&) = delete;
    TestPlace& operator=(const TestPlace&) = delete;

    virtual EngineKind Engine() const = 0;
    // Whether the dialect is kept to in everything: ours, and SQL Server's own. Another server that
    // reads it has ways of its own in what the component has no need of.
    virtual bool KeepsToTheDialect() const { return true; }
    // The program's words for the account: its file, or "--database" and a connection string.
    virtual std::vector<std::string> ProgramWords() const = 0;
    virtual std::string ConnectionString() const = 0;
    // A connection that is not open yet and waits `timeout` milliseconds for others' locks.
    // `keys`: the tables whose keys it is told.
    virtual std::shared_ptr<platform::Connection> NewConnection(
        int timeout, const std::vector<tsql::TableDescription>& keys) const = 0;

    // Creates the tables beside those that are there; whether one is there is not asked.
    virtual void CreateTables(const std::vector<tsql::TableDescription>& tables) = 0;
    virtual void DropTable(const std::string& table) = 0;
};

// A place without any tables, which is gone with the object. Throws std::runtime_error when there
// is none to be had: for a connection string, also when the database there holds tables that are
// not the tests'. `file`: where the account's file is or is to be, if the engine keeps it in one
// and it is not to be gone with the object.
std::unique_ptr<TestPlace> MakeTestPlace(const std::string& file = {});

}  // namespace kelvane::support
