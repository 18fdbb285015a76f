#include "bench/server_floor.h"

#include <benchmark/benchmark.h>
#include <sql.h>
#include <sqlext.h>

#include <array>
#include <stdexcept>

#include "adapters/odbc/server.h"
#include "bench/entry_windows.h"
#include "platform/connection_string.h"

namespace kelvane::bench {

namespace {

SQLCHAR* Chars(const std::string& text) {
    return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text.c_str()));
}

void Require(SQLRETURN outcome, const char* call) {
    if (SQL_SUCCEEDED(outcome) || outcome == SQL_NO_DATA) return;
    throw std::runtime_error(std::string("the floor's ") + call + " failed");
}

SQLPOINTER Number(std::uintptr_t value) {
    return reinterpret_cast<SQLPOINTER>(value);  // NOLINT(performance-no-int-to-ptr)
}

}  // namespace

class ServerFloor::Link {
public:
    explicit Link(const std::string& connectionString) {
        SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &mEnvironment);
        SQLSetEnvAttr(mEnvironment, SQL_ATTR_ODBC_VERSION, Number(SQL_OV_ODBC3), 0);
        SQLAllocHandle(SQL_HANDLE_DBC, mEnvironment, &mConnection);
        Require(SQLDriverConnect(mConnection, nullptr, Chars(connectionString), SQL_NTS, nullptr, 0,
                                 nullptr, SQL_DRIVER_NOPROMPT),
                "connecting");
        SQLAllocHandle(SQL_HANDLE_STMT, mConnection, &mStatement);
    }
    ~Link() {
        SQLFreeHandle(SQL_HANDLE_STMT, mStatement);
        SQLDisconnect(mConnection);
        SQLFreeHandle(SQL_HANDLE_DBC, mConnection);
        SQLFreeHandle(SQL_HANDLE_ENV, mEnvironment);
    }
    Link(const Link&) = delete;
    Link& operator=(const Link&) = delete;

    void Run(const std::string& text) {
        Require(SQLExecDirect(mStatement, Chars(text), SQL_NTS), "statement");
        SQLSMALLINT columns = 0;
        SQLNumResultCols(mStatement, &columns);
        if (columns > 0) TakeRows(static_cast<SQLUSMALLINT>(columns));
        SQLFreeStmt(mStatement, SQL_CLOSE);
    }
    void Begin() { SetAutoCommit(SQL_AUTOCOMMIT_OFF); }
    void Commit() {
        Require(SQLEndTran(SQL_HANDLE_DBC, mConnection, SQL_COMMIT), "commit");
        SetAutoCommit(SQL_AUTOCOMMIT_ON);
    }

private:
    void TakeRows(SQLUSMALLINT columns) {
        for (;;) {
            const SQLRETURN fetched = SQLFetch(mStatement);
            if (fetched == SQL_NO_DATA) return;
            Require(fetched, "row");
            for (SQLUSMALLINT column = 1; column <= columns; ++column) {
                SQLLEN length = 0;
                Require(SQLGetData(mStatement, column, SQL_C_CHAR, mField.data(),
                                   static_cast<SQLLEN>(mField.size()), &length),
                        "field");
                benchmark::DoNotOptimize(mField);
            }
        }
    }
    void SetAutoCommit(std::uintptr_t value) {
        Require(SQLSetConnectAttr(mConnection, SQL_ATTR_AUTOCOMMIT, Number(value), SQL_IS_UINTEGER),
                "transaction");
    }

    SQLHANDLE mEnvironment = SQL_NULL_HANDLE;
    SQLHANDLE mConnection = SQL_NULL_HANDLE;
    SQLHANDLE mStatement = SQL_NULL_HANDLE;
    std::array<char, 4096> mField{};
};

std::vector<ServerStatement> ServerStatementsOf(const std::string& connectionString,
                                                const std::vector<std::string>& noted) {
    odbc::Server server({}, connectionString);
    std::vector<ServerStatement> statements;
    for (const std::string_view line : noted) {
        const std::size_t blank = line.find(' ');
        const Path path = line.substr(0, blank) == "gEnv" ? Path::Environment : Path::Connection;
        const auto plan =
            server.Dialect().PlanBatch(line.substr(blank + 1), {.wantsRows = true}, server);
        for (const odbc::RunStep& step : plan.steps) statements.push_back({path, step.text});
        // Read to be saved: the transaction begins here, and the row is locked.
        if (line.find("HOLDLOCK") == std::string_view::npos) continue;
        statements.back().begins = true;
        statements.back().text += " for update";
    }
    return statements;
}

ServerFloor::ServerFloor(const std::string& connectionString) {
    // A text goes as it stands, as ours does.
    const std::string text =
        platform::WithEnd(connectionString) +
        "Protocol=7.4-0;UseServerSidePrepare=0;UseDeclareFetch=0;LFConversion=0";
    mConnection = std::make_unique<Link>(text);
    mEnvironment = std::make_unique<Link>(text);
}

ServerFloor::~ServerFloor() = default;

double ServerFloor::Run(const std::vector<ServerStatement>& statements) {
    const double start = Now();
    for (const ServerStatement& statement : statements) {
        Link& link = statement.path == Path::Connection ? *mConnection : *mEnvironment;
        if (statement.begins) link.Begin();
        link.Run(statement.text);
        if (statement.commits) link.Commit();
    }
    return Now() - start;
}

}  // namespace kelvane::bench
