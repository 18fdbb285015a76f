#include "adapters/sqlite/file_transaction.h"

#include "adapters/sqlite/database.h"
#include "adapters/sqlite/failures.h"

namespace kelvane::sqlite {

namespace {
constexpr const char* kBegin = "begin immediate";
constexpr const char* kRollBack = "rollback";
}  // namespace

bool FileTransaction::InTransaction() const {
    return mDatabase.InTransaction();
}

void FileTransaction::Start() {
    mDatabase.StartChanges();
    mDatabase.Run(kBegin);
}

// The engine's snapshot is that of the first query; a writer who has a log goes on beside it.
void FileTransaction::StartSnapshot() {
    mDatabase.Run("begin");
}

void FileTransaction::Commit() {
    const int code = mDatabase.TryRun("commit");
    if (code == SQLITE_OK) return;
    const Failure failure{code, sqlite3_errmsg(mDatabase.Handle()), mDatabase.Path(), ""};
    if (mDatabase.InTransaction()) mDatabase.TryRun(kRollBack);
    ThrowFromCommit(failure);
}

void FileTransaction::RollBack() {
    mDatabase.Run(kRollBack);
}

bool FileTransaction::TryLock() noexcept {
    const int timeout = mDatabase.Timeout();
    mDatabase.SetTimeout(0);
    const bool locked =
        mDatabase.TryStartChanges() == SQLITE_OK && mDatabase.TryRun(kBegin) == SQLITE_OK;
    mDatabase.SetTimeout(timeout);
    return locked;
}

}  // namespace kelvane::sqlite
