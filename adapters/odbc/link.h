// The driver's handles to one server, owned, and what is done with them: connecting, running a
// text, ending a transaction. Every failed call is a DriverFailure.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "adapters/odbc/diagnostics.h"
#include "adapters/odbc/odbc_api.h"
#include "adapters/odbc/odbc_connection.h"
#include "adapters/odbc/result_reader.h"
#include "adapters/odbc/result_rows.h"

namespace kelvane::odbc {

class Link {
public:
    explicit Link(const OdbcSettings& settings) : mSettings(settings) {}
    ~Link() { Disconnect(); }
    Link(const Link&) = delete;
    Link& operator=(const Link&) = delete;

    void Connect(std::string_view connectionString);
    // Throws nothing; an open transaction is the server's to undo.
    void Disconnect() noexcept;
    bool IsConnected() const { return mStatement != SQL_NULL_HANDLE; }
    // Whether the driver has found the connection dead; asks nobody.
    bool IsDead() const;
    // The name the engine gives itself; empty when the driver does not tell.
    std::string EngineName() const;

    // Runs a text up to the end of its last result. The rows are those of its first result with
    // columns, unless `wanted` is null. An error of a later result is thrown once all have come.
    ResultRows Run(const std::string& text, const WantedRows* wanted);

    // Runs a text of several queries; `wanted` has what each of them returns. Gives the rows of the
    // results with columns, in their order: as many as there are, which the caller checks.
    std::vector<ResultRows> RunQueries(const std::string& text,
                                       const std::vector<WantedRows>& wanted);

    void SetAutoCommit(bool on);
    void EndTransaction(bool commit);

private:
    void Check(SQLRETURN code, SQLSMALLINT type, SQLHANDLE handle) const;
    void TrySetAttribute(SQLINTEGER attribute, int value) noexcept;
    bool TakesWideTexts() const;
    SQLRETURN Execute(const std::string& text);
    void RunAll(const std::string& text, const std::function<void()>& takeResult);
    SQLSMALLINT CountColumns() const;
    void TakeResult(ResultRows& rows, const WantedRows* wanted);

    const OdbcSettings& mSettings;
    SQLHANDLE mEnvironment = SQL_NULL_HANDLE;
    SQLHANDLE mConnection = SQL_NULL_HANDLE;
    SQLHANDLE mStatement = SQL_NULL_HANDLE;
    bool mWide = true;
    ResultReader mReader;
};

}  // namespace kelvane::odbc
