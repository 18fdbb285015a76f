// The engine's handle to one account file, owned, and how its failures become errors.
#pragma once

#include <sqlite3.h>

#include <optional>
#include <string>

#include "platform/database.h"

namespace kelvane::sqlite {

class Database {
public:
    // Opens the file `path`, which exists, for reading and writing. Throws DatabaseError.
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

    void SetTimeout(int milliseconds);
    int Timeout() const { return mTimeout; }
    bool InTransaction() const { return sqlite3_get_autocommit(mHandle) == 0; }

    // Throws what the engine's last failure, whose code is `code`, means. `table`: the table that
    // was to be changed.
    [[noreturn]] void Fail(int code, const std::string& table = "");

    // An error that a function of ours found while the engine ran a statement; it is what the
    // statement then fails with.
    void SetFunctionError(const platform::DatabaseError& error) { mFunctionError = error; }
    bool HasFunctionError() const { return mFunctionError.has_value(); }

private:
    std::string mPath;
    int mTimeout;
    sqlite3* mHandle = nullptr;
    std::optional<platform::DatabaseError> mFunctionError;
};

}  // namespace kelvane::sqlite
