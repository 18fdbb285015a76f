#include "adapters/sqlite/database.h"

#include <utility>

#ifdef __GLIBC__
#include <malloc.h>
#endif

#include "adapters/sqlite/failures.h"
#include "adapters/sqlite/functions.h"
#include "adapters/sqlite/hardening.h"
#include "adapters/sqlite/statement.h"

namespace kelvane::sqlite {

namespace {

// The engine's Bloom filters take the lengths of texts into account, and texts of different lengths
// can be equal here: trailing blanks do not count. So they are switched off.
void RefuseBloomFilters(sqlite3* handle) {
    constexpr int kBloomFilters = 0x00080000;
    sqlite3_test_control(SQLITE_TESTCTRL_OPTIMIZATIONS, handle, kBloomFilters);
}

// Fewer are kept: giving them back would take longer than they are worth.
constexpr int kManyBytes = 2 << 20;

// Of the engine's own: often enough to end a statement in time, seldom enough to cost nothing.
constexpr int kStepsBetweenLooks = 1000;

}  // namespace

Database::Database(const std::string& path, int timeout) : mPath(path), mTimeout(timeout) {
    const int code = sqlite3_open_v2(path.c_str(), &mHandle,
                                     SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    if (code != SQLITE_OK) {
        const Failure failure{code, sqlite3_errmsg(mHandle), path, ""};
        sqlite3_close(mHandle);
        Throw(failure);
    }
    try {
        Harden(mHandle);
        sqlite3_extended_result_codes(mHandle, 1);
        RefuseBloomFilters(mHandle);
        SetTimeout(timeout);
        sqlite3_progress_handler(
            mHandle, kStepsBetweenLooks,
            [](void* self) { return static_cast<Database*>(self)->HasRunTooLong() ? 1 : 0; }, this);
        AddFunctions(*this);
    } catch (...) {
        sqlite3_close(mHandle);
        throw;
    }
}

Database::~Database() {
    sqlite3_close_v2(mHandle);
}

void Database::ForgetPages() {
    int used = 0;
    int most = 0;
    sqlite3_db_status(mHandle, SQLITE_DBSTATUS_CACHE_USED, &used, &most, 0);
    if (used < kManyBytes) return;
    sqlite3_db_release_memory(mHandle);
#ifdef __GLIBC__
    // They lie between what else was taken meanwhile; without this the program would keep them.
    malloc_trim(0);
#endif
}

void Database::SetTimeout(int milliseconds) {
    mTimeout = milliseconds;
    sqlite3_busy_timeout(mHandle, milliseconds);
}

void Database::StartStatement() {
    mStatementEnd = Clock::now() + mStatementBound + std::chrono::milliseconds(mTimeout);
}

void Database::KeepLog() {
    sqlite3_db_config(mHandle, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
}

void Database::ReleaseLog() {
    sqlite3_db_config(mHandle, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 0, nullptr);
}

int Database::TryStartChanges() {
    if (mChanges || InTransaction()) return SQLITE_OK;
    const int code = TryRun("pragma journal_mode = wal");
    if (code != SQLITE_OK) return code;
    ReleaseLog();
    mChanges = true;
    return SQLITE_OK;
}

void Database::StartChanges() {
    const int code = TryStartChanges();
    if (code != SQLITE_OK) Fail(code);
}

int Database::TryRun(const char* statement) {
    StartStatement();
    return sqlite3_exec(mHandle, statement, nullptr, nullptr, nullptr);
}

void Database::Run(const char* statement) {
    const int code = TryRun(statement);
    if (code != SQLITE_OK) Fail(code);
}

std::int64_t Database::Number(const char* query) {
    Statement statement(*this, query, false);
    const int code = statement.Step();
    if (code != SQLITE_ROW) Fail(code);
    return statement.Integer(0);
}

void Database::Fail(int code, const std::string& table) {
    if (mFunctionError) {
        const platform::DatabaseError error = *std::exchange(mFunctionError, std::nullopt);
        throw error;
    }
    Throw({code, sqlite3_errmsg(mHandle), mPath, table});
}

}  // namespace kelvane::sqlite
