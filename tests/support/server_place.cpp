#include "tests/support/server_place.h"

#include <regex>
#include <stdexcept>
#include <utility>

#include "adapters/odbc/odbc_connection.h"
#include "adapters/tsql/language/table_statements.h"
#include "tests/support/bare_odbc.h"
#include "tests/support/test_tables.h"

namespace kelvane::support {

namespace {

using platform::StatementText;

constexpr int kTimeout = 5000;
// The table that says that a database is the tests'.
constexpr const char* kMarker = "Kelvane_TestSuite";

class ServerPlace : public TestPlace {
public:
    explicit ServerPlace(std::string connectionString)
        : mConnectionString(std::move(connectionString)) {
        odbc::OdbcConnection connection;
        connection.SetConnectionString(mConnectionString);
        connection.Open("", "", -1);
        mEngine = connection.Engine() == odbc::DatabaseEngine::PostgreSql ? EngineKind::PostgreSql
                                                                          : EngineKind::SqlServer;
    }

    EngineKind Engine() const override { return mEngine; }
    bool KeepsToTheDialect() const override {
        if (mEngine == EngineKind::PostgreSql) return true;
        try {
            return RunBare(mConnectionString, "select @@version")
                .starts_with("Microsoft SQL Server");
        } catch (const std::runtime_error&) {
            return false;  // one that does not even say what it is
        }
    }
    std::vector<std::string> ProgramWords() const override {
        return {"--database", mConnectionString};
    }
    std::string ConnectionString() const override { return mConnectionString; }

    std::shared_ptr<platform::Connection> NewConnection(
        int timeout, const std::vector<tsql::TableDescription>& keys) const override {
        odbc::OdbcSettings settings;
        settings.lockTimeout = timeout;
        for (const auto& table : keys) {
            if (!table.key.empty()) settings.keys.push_back({table.name, table.key});
        }
        auto connection = std::make_shared<odbc::OdbcConnection>(settings);
        connection->SetConnectionString(mConnectionString);
        return connection;
    }

    void CreateTables(const std::vector<tsql::TableDescription>& tables) override {
        const auto connection = Connect();
        platform::Transaction transaction(*connection);
        for (const auto& table : tables) {
            for (const auto& statement : tsql::CreateStatements(table)) {
                connection->Execute(statement);
            }
        }
        transaction.Commit();
    }

    void DropTable(const std::string& table) override {
        Connect()->Execute(tsql::DropStatement(table));
    }

protected:
    std::shared_ptr<platform::Connection> Connect() const {
        auto connection = NewConnection(kTimeout, {});
        connection->Open("", "", -1);
        return connection;
    }

private:
    std::string mConnectionString;
    EngineKind mEngine = EngineKind::SqlServer;
};

// A database that is the place's alone for as long as it holds the lock of its number, emptied
// before the place connects to it. To make one takes the server longer than most tests take, so
// that one that is free is used again; what is left of the place before may still be there.
class BorrowedDatabase {
public:
    explicit BorrowedDatabase(const std::string& server) : mLock(server) {
        while (mLock.Ask("select pg_try_advisory_lock(" + std::to_string(++mNumber) + ")::int") !=
               "1") {
        }
        const std::string name = "kelvane_test_" + std::to_string(mNumber);
        mConnectionString = WithKeyword(server, "Database", name);
        const std::string named = " where datname='" + name + "'";
        if (mLock.Ask("select count(*) from pg_database" + named) == "0") {
            mLock.Ask("create database " + name + " template template0 strategy file_copy");
            return;
        }
        mLock.Ask("select count(pg_terminate_backend(pid,5000)) from pg_stat_activity" + named);
        RunBare(mConnectionString, "drop schema public cascade; create schema public");
    }

    std::string ConnectionString() const { return mConnectionString; }

private:
    BareConnection mLock;
    int mNumber = 0;
    std::string mConnectionString;
};

class PostgresPlace : private BorrowedDatabase, public ServerPlace {
public:
    explicit PostgresPlace(const std::string& server)
        : BorrowedDatabase(server), ServerPlace(BorrowedDatabase::ConnectionString()) {}

    std::string ConnectionString() const override { return ServerPlace::ConnectionString(); }
};

// One database for all tests of a run, so each begins by emptying it.
class SharedPlace : public ServerPlace {
public:
    explicit SharedPlace(const std::string& connectionString) : ServerPlace(connectionString) {
        const auto connection = Connect();
        if (!HasTable(*connection, kMarker)) {
            RequireEmpty(*connection);
            CreateTables({{kMarker, {{"cNote", "varchar(60)"}}, {}, {}}});
        }
        for (const auto& table : KnownTables()) {
            if (HasTable(*connection, table)) {
                connection->Execute(tsql::DropStatement(table));
            }
        }
    }

private:
    static bool HasTable(platform::Connection& connection, const std::string& table) {
        StatementText query("select count(*) from ");
        query.Identifier(table);
        try {
            connection.OpenRecordSet(query);
            return true;
        } catch (const platform::ConnectionLost&) {
            throw;
        } catch (const platform::DatabaseError&) {
            return false;
        }
    }

    // Whatever tables it has, they are not the tests'.
    void RequireEmpty(platform::Connection& connection) const {
        for (const auto& table : KnownTables()) {
            if (HasTable(connection, table)) Refuse("the table " + table);
        }
        std::string count;
        try {
            count = RunBare(ConnectionString(),
                            "select count(*) from information_schema.tables where table_schema "
                            "not in ('information_schema','pg_catalog','sys')");
        } catch (const std::runtime_error&) {
            return;  // nothing to be asked there, and none of the tables that the tests would drop
        }
        if (count != "0") Refuse(count + " tables");
    }

    [[noreturn]] static void Refuse(const std::string& what) {
        throw std::runtime_error("The database is not the tests': it holds " + what +
                                 ", but not the table " + kMarker +
                                 ". The tests drop tables; give them an empty database.");
    }
};

}  // namespace

std::string WithKeyword(const std::string& connectionString, const std::string& keyword,
                        const std::string& value) {
    const std::regex pattern("(^|;)\\s*" + keyword + "\\s*=[^;]*", std::regex::icase);
    return std::regex_replace(connectionString, pattern, "$1" + keyword + '=' + value);
}

std::unique_ptr<TestPlace> MakePostgresPlace(const std::string& connectionString) {
    return std::make_unique<PostgresPlace>(connectionString);
}

std::unique_ptr<TestPlace> MakeServerPlace(const std::string& connectionString) {
    return std::make_unique<SharedPlace>(connectionString);
}

}  // namespace kelvane::support
