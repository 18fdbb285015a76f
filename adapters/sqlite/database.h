// The engine's handle to one account file, owned, and how its failures become errors.
#pragma once

#include <sqlite3.h>

#include <chrono>
#include <optional>
#include <string>

#include "platform/database.h"

namespace kelvane::sqlite {

// How long one statement may run before it is ended. Waiting for the locks of others does not
// count.
inline constexpr std::chrono::milliseconds kStatementBound = std::chrono::minutes(2);

class Database {
public:
    // Opens the file `path`, which exists, for reading and writing, hardened against what the file
    // may hold. Throws DatabaseError.
    // `timeout`: milliseconds to wait for the locks of others.
    Database(const std::string& path, int timeout);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    sqlite3* Handle() const { return mHandle; }
    const std::string& Path() const { return mPath; }

    // Runs a statement that returns nothing. Throws DatabaseError.
    void Run(const char* statement);
    // The same; the result code instead of an error.
    int TryRun(const char* statement);
    // The one number that a query returns.
    std::int64_t Number(const char* query);

    // Gives the pages that are kept for the next statements back to the system, when they are many.
    void ForgetPages();

    void SetTimeout(int milliseconds);
    int Timeout() const { return mTimeout; }
    void SetStatementBound(std::chrono::milliseconds bound) { mStatementBound = bound; }
    // A statement begins: from here on its time counts.
    void StartStatement();
    bool InTransaction() const { return sqlite3_get_autocommit(mHandle) == 0; }

    // Throws what the engine's last failure, whose code is `code`, means. `table`: the table that
    // was to be changed.
    [[noreturn]] void Fail(int code, const std::string& table = "");

    // An error that a function of ours found while the engine ran a statement; it is what the
    // statement then fails with.
    void SetFunctionError(const platform::DatabaseError& error) { mFunctionError = error; }
    bool HasFunctionError() const { return mFunctionError.has_value(); }

    // Who only looks leaves the file as it is: until the first change this connection does not
    // write the log into it when it is the last one to leave. ReleaseLog(): it does.
    void KeepLog();
    void ReleaseLog();
    // Before a change outside a transaction, and before one begins: from here on the changes go
    // into a log. The engine's result code.
    int TryStartChanges();
    void StartChanges();

private:
    using Clock = std::chrono::steady_clock;

    bool HasRunTooLong() const { return Clock::now() >= mStatementEnd; }

    std::string mPath;
    int mTimeout;
    sqlite3* mHandle = nullptr;
    std::chrono::milliseconds mStatementBound = kStatementBound;
    Clock::time_point mStatementEnd = Clock::time_point::max();
    bool mChanges = false;
    std::optional<platform::DatabaseError> mFunctionError;
};

}  // namespace kelvane::sqlite
