#include "adapters/odbc/link.h"

#include <cstdint>
#include <optional>

#include "adapters/odbc/wide_text.h"
#include "platform/connection_string.h"

namespace kelvane::odbc {

namespace {

// Ends the statement's run, so that the connection is free for the next one.
class StatementRun {
public:
    explicit StatementRun(SQLHANDLE statement) : mStatement(statement) {}
    ~StatementRun() { SQLFreeStmt(mStatement, SQL_CLOSE); }
    StatementRun(const StatementRun&) = delete;
    StatementRun& operator=(const StatementRun&) = delete;

private:
    SQLHANDLE mStatement;
};

SQLPOINTER NumberAttribute(std::uintptr_t value) {
    // The driver takes numbers in the place of a pointer.
    return reinterpret_cast<SQLPOINTER>(value);  // NOLINT(performance-no-int-to-ptr)
}

SQLCHAR* Narrow(const std::string& text) {
    // The driver only reads it.
    return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text.c_str()));
}

// A driver that repeats an error for ever shall not hold the program.
constexpr int kMaxErrors = 1000;

}  // namespace

void Link::Check(SQLRETURN code, SQLSMALLINT type, SQLHANDLE handle) const {
    if (SQL_SUCCEEDED(code) || code == SQL_NO_DATA) return;
    throw DriverFailure(ReportedError(type, handle));
}

void Link::TrySetAttribute(SQLINTEGER attribute, int value) noexcept {
    if (value <= 0) return;
    const auto number = NumberAttribute(static_cast<std::uintptr_t>(value));
    if (mStatement == SQL_NULL_HANDLE) {
        SQLSetConnectAttr(mConnection, attribute, number, SQL_IS_UINTEGER);
    } else {
        SQLSetStmtAttr(mStatement, attribute, number, SQL_IS_UINTEGER);
    }
}

void Link::Connect(std::string_view connectionString) {
    Disconnect();
    try {
        SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &mEnvironment);
        Check(SQLSetEnvAttr(mEnvironment, SQL_ATTR_ODBC_VERSION, NumberAttribute(SQL_OV_ODBC3), 0),
              SQL_HANDLE_ENV, mEnvironment);
        Check(SQLAllocHandle(SQL_HANDLE_DBC, mEnvironment, &mConnection), SQL_HANDLE_ENV,
              mEnvironment);
        TrySetAttribute(SQL_ATTR_LOGIN_TIMEOUT, mSettings.connectTimeout);
        std::string ended = platform::WithEnd(connectionString);
        const database::WipedAfterwards endedWiped(ended);
        WideText text = ToWide(ended);
        const database::WipedAfterwards textWiped(text);
        Check(SQLDriverConnectW(mConnection, nullptr, text.data(),
                                static_cast<SQLSMALLINT>(text.size()), nullptr, 0, nullptr,
                                SQL_DRIVER_NOPROMPT),
              SQL_HANDLE_DBC, mConnection);
        mWide = TakesWideTexts();
        Check(SQLAllocHandle(SQL_HANDLE_STMT, mConnection, &mStatement), SQL_HANDLE_DBC,
              mConnection);
        TrySetAttribute(SQL_ATTR_QUERY_TIMEOUT, mSettings.queryTimeout);
    } catch (...) {
        Disconnect();
        throw;
    }
}

void Link::Disconnect() noexcept {
    if (mStatement != SQL_NULL_HANDLE) SQLFreeHandle(SQL_HANDLE_STMT, mStatement);
    mStatement = SQL_NULL_HANDLE;
    if (mConnection != SQL_NULL_HANDLE) {
        // Refused while a transaction is open.
        if (SQLDisconnect(mConnection) == SQL_ERROR) {
            SQLEndTran(SQL_HANDLE_DBC, mConnection, SQL_ROLLBACK);
            SQLDisconnect(mConnection);
        }
        SQLFreeHandle(SQL_HANDLE_DBC, mConnection);
    }
    mConnection = SQL_NULL_HANDLE;
    if (mEnvironment != SQL_NULL_HANDLE) SQLFreeHandle(SQL_HANDLE_ENV, mEnvironment);
    mEnvironment = SQL_NULL_HANDLE;
}

bool Link::IsDead() const {
    SQLUINTEGER dead = SQL_CD_FALSE;
    if (!IsConnected()) return true;
    const SQLRETURN code =
        SQLGetConnectAttr(mConnection, SQL_ATTR_CONNECTION_DEAD, &dead, sizeof dead, nullptr);
    return SQL_SUCCEEDED(code) && dead == SQL_CD_TRUE;
}

std::string Link::EngineName() const {
    SQLWCHAR name[128] = {};
    SQLSMALLINT bytes = 0;
    if (!SQL_SUCCEEDED(SQLGetInfoW(mConnection, SQL_DBMS_NAME, name, sizeof name, &bytes))) {
        return {};
    }
    std::string result;
    FromWide(name, std::char_traits<SQLWCHAR>::length(name), result);
    return result;
}

// A driver without wide calls gets its texts through the driver manager, which knows only the
// letters of the system's locale. Such a driver is spoken to in UTF-8.
bool Link::TakesWideTexts() const {
    static constexpr std::string_view kProbe = "'宽'";
    WideText text = ToWide(kProbe);
    SQLWCHAR answer[64] = {};
    SQLINTEGER length = 0;
    const SQLRETURN code =
        SQLNativeSqlW(mConnection, text.data(), static_cast<SQLINTEGER>(text.size()), answer,
                      static_cast<SQLINTEGER>(std::size(answer)), &length);
    if (!SQL_SUCCEEDED(code)) return true;
    return text == answer;
}

SQLRETURN Link::Execute(const std::string& text) {
    if (!mWide) return SQLExecDirect(mStatement, Narrow(text), SQL_NTS);
    WideText wide = ToWide(text);
    return SQLExecDirectW(mStatement, wide.data(), static_cast<SQLINTEGER>(wide.size()));
}

SQLSMALLINT Link::CountColumns() const {
    SQLSMALLINT columns = 0;
    Check(SQLNumResultCols(mStatement, &columns), SQL_HANDLE_STMT, mStatement);
    return columns;
}

void Link::TakeResult(ResultRows& rows, const WantedRows* wanted) {
    const SQLSMALLINT columns = CountColumns();
    if (columns == 0) {
        SQLLEN count = -1;
        Check(SQLRowCount(mStatement, &count), SQL_HANDLE_STMT, mStatement);
        if (count >= 0) rows.changedRows = static_cast<long>(count);
    } else if (wanted != nullptr && !rows.hasResult) {
        mReader.Read(mStatement, columns, *wanted, mWide, rows);
    }
}

void Link::RunAll(const std::string& text, const std::function<void()>& takeResult) {
    const StatementRun run(mStatement);
    std::optional<DriverFailure> failure;
    int errors = 0;
    SQLRETURN code = Execute(text);
    do {
        try {
            Check(code, SQL_HANDLE_STMT, mStatement);
            if (!failure) takeResult();
        } catch (const DriverFailure& thrown) {
            if (!failure) failure.emplace(thrown);
            const bool ended = FailureOf(thrown.Reported()).kind != FailureKind::Statement;
            if (ended || ++errors == kMaxErrors || IsDead()) break;
        }
        code = SQLMoreResults(mStatement);
    } while (code != SQL_NO_DATA);
    if (failure) throw *failure;
}

ResultRows Link::Run(const std::string& text, const WantedRows* wanted) {
    ResultRows rows;
    RunAll(text, [&] { TakeResult(rows, wanted); });
    return rows;
}

std::vector<ResultRows> Link::RunQueries(const std::string& text,
                                         const std::vector<WantedRows>& wanted) {
    std::vector<ResultRows> answers;
    answers.reserve(wanted.size());
    RunAll(text, [&] {
        const SQLSMALLINT columns = CountColumns();
        if (columns == 0) return;
        static const WantedRows kUnexpected;
        const bool expected = answers.size() < wanted.size();
        ResultRows& rows = answers.emplace_back();
        mReader.Read(mStatement, columns, expected ? wanted[answers.size() - 1] : kUnexpected,
                     mWide, rows);
    });
    return answers;
}

void Link::SetAutoCommit(bool on) {
    const auto value = NumberAttribute(on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF);
    Check(SQLSetConnectAttr(mConnection, SQL_ATTR_AUTOCOMMIT, value, SQL_IS_UINTEGER),
          SQL_HANDLE_DBC, mConnection);
}

void Link::EndTransaction(bool commit) {
    Check(SQLEndTran(SQL_HANDLE_DBC, mConnection,
                     static_cast<SQLSMALLINT>(commit ? SQL_COMMIT : SQL_ROLLBACK)),
          SQL_HANDLE_DBC, mConnection);
}

}  // namespace kelvane::odbc
