#include "bench/floor.h"

#include <benchmark/benchmark.h>

#include <stdexcept>

#include "bench/entry_windows.h"

namespace kelvane::bench {

namespace {

sqlite3* Opened(const std::string& account) {
    sqlite3* handle = nullptr;
    constexpr int kFlags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX;
    if (sqlite3_open_v2(account.c_str(), &handle, kFlags, nullptr) != SQLITE_OK ||
        sqlite3_exec(handle,
                     "pragma synchronous = full; pragma cache_size = -16384;"
                     "pragma journal_mode = wal; select count(*) from sqlite_schema",
                     nullptr, nullptr, nullptr) != SQLITE_OK) {
        throw std::runtime_error(account + ": " + sqlite3_errmsg(handle));
    }
    return handle;
}

[[noreturn]] void Fail(sqlite3* handle, const std::string& text) {
    throw std::runtime_error(text + ": " + sqlite3_errmsg(handle));
}

sqlite3_stmt* Prepared(sqlite3* handle, const std::string& text) {
    sqlite3_stmt* prepared = nullptr;
    const int code =
        sqlite3_prepare_v2(handle, text.data(), static_cast<int>(text.size()), &prepared, nullptr);
    if (code != SQLITE_OK) Fail(handle, text);
    return prepared;
}

}  // namespace

Floor::Floor(const std::string& account, Preparing preparing)
    : mConnection(Opened(account)), mEnvironment(Opened(account)), mPreparing(preparing) {}

Floor::~Floor() {
    for (sqlite3_stmt* prepared : mKept) sqlite3_finalize(prepared);
    benchmark::DoNotOptimize(mSum);
    sqlite3_close(mConnection);
    sqlite3_close(mEnvironment);
}

double Floor::Run(const std::vector<PlainStatement>& statements) {
    const double start = Now();
    for (const PlainStatement& statement : statements) {
        sqlite3* handle = statement.path == Path::Connection ? mConnection : mEnvironment;
        if (mPreparing == Preparing::Each) {
            RunEach(handle, statement);
        } else {
            RunKept(handle, statement);
        }
    }
    return Now() - start;
}

void Floor::RunEach(sqlite3* handle, const PlainStatement& statement) {
    sqlite3_stmt* prepared = Prepared(handle, statement.text);
    StepAll(handle, prepared);
    sqlite3_finalize(prepared);
}

void Floor::RunKept(sqlite3* handle, const PlainStatement& statement) {
    if (mKept.size() <= statement.shapeNumber) mKept.resize(statement.shapeNumber + 1);
    sqlite3_stmt*& prepared = mKept[statement.shapeNumber];
    if (prepared == nullptr) prepared = Prepared(handle, statement.shape);
    int place = 0;
    for (const PlainValue& value : statement.values) {
        ++place;
        if (value.isNumber) {
            sqlite3_bind_int64(prepared, place, std::stoll(value.text));
        } else {
            sqlite3_bind_text(prepared, place, value.text.data(),
                              static_cast<int>(value.text.size()), SQLITE_STATIC);
        }
    }
    StepAll(handle, prepared);
    sqlite3_reset(prepared);
}

void Floor::StepAll(sqlite3* handle, sqlite3_stmt* prepared) {
    const int columns = sqlite3_column_count(prepared);
    int code = sqlite3_step(prepared);
    for (; code == SQLITE_ROW; code = sqlite3_step(prepared)) {
        for (int column = 0; column < columns; ++column) {
            switch (sqlite3_column_type(prepared, column)) {
                case SQLITE_NULL:
                    break;
                case SQLITE_INTEGER:
                    mSum += static_cast<std::uint64_t>(sqlite3_column_int64(prepared, column));
                    break;
                default: {
                    const unsigned char* value = sqlite3_column_text(prepared, column);
                    const int length = sqlite3_column_bytes(prepared, column);
                    if (length > 0) mSum += value[length - 1];
                }
            }
        }
    }
    if (code != SQLITE_DONE) Fail(handle, sqlite3_sql(prepared));
}

}  // namespace kelvane::bench
