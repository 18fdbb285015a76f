// A prepared statement, owned.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "adapters/tsql/values/conversion.h"

namespace kelvane::sqlite {

class Database;

class Statement {
public:
    Statement() = default;
    // Prepares the statement's text. Throws DatabaseError. `lasting`: it will be run many times.
    Statement(Database& database, std::string_view text, bool lasting);
    ~Statement();
    Statement(Statement&& other) noexcept { *this = std::move(other); }
    Statement& operator=(Statement&& other) noexcept;

    explicit operator bool() const { return mHandle != nullptr; }

    // `place` counts from 1. A text must live until the statement has been reset.
    void Bind(int place, const tsql::Datum& value);
    // The engine's result code.
    int Step();
    // Ends the run, so that its locks are given back and its values may go.
    void Reset();

    int ColumnCount() const { return sqlite3_column_count(mHandle); }
    sqlite3_value* Column(int index) const { return sqlite3_column_value(mHandle, index); }
    std::int64_t Integer(int index) const { return sqlite3_column_int64(mHandle, index); }
    std::string Text(int index) const;

    // Whether the engine prepared it again for a changed schema since this was last asked.
    bool WasPreparedAgain();

    sqlite3_stmt* Handle() const { return mHandle; }

private:
    Database* mDatabase = nullptr;
    sqlite3_stmt* mHandle = nullptr;
    bool mRuns = false;
};

// Resets a statement when the scope is left.
class StatementRun {
public:
    explicit StatementRun(Statement& statement) : mStatement(statement) {}
    ~StatementRun() { mStatement.Reset(); }
    StatementRun(const StatementRun&) = delete;
    StatementRun& operator=(const StatementRun&) = delete;

private:
    Statement& mStatement;
};

// The value that the engine holds, by the way it holds it.
tsql::Datum DatumOf(sqlite3_value* value);

}  // namespace kelvane::sqlite
