#include "adapters/sqlite/transactions.h"

#include "adapters/sqlite/database.h"
#include "adapters/sqlite/failures.h"

namespace kelvane::sqlite {

namespace {

constexpr const char* kBegin = "begin immediate";

platform::DatabaseError NoTransaction() {
    return platform::DatabaseError("There is no transaction.", 3902);
}

}  // namespace

void Transactions::Begin() {
    if (mExplicit) throw platform::DatabaseError("A transaction is open already.", 3901);
    if (!mHeld) mDatabase.Run(kBegin);
    mHeld = false;
    mExplicit = true;
}

void Transactions::CommitEngine() {
    const int code = mDatabase.TryRun("commit");
    if (code == SQLITE_OK) return;
    const Failure failure{code, sqlite3_errmsg(mDatabase.Handle()), mDatabase.Path(), ""};
    if (mDatabase.InTransaction()) mDatabase.TryRun("rollback");
    ThrowFromCommit(failure);
}

void Transactions::Commit() {
    if (!mExplicit) throw NoTransaction();
    if (!mDatabase.InTransaction()) {
        mExplicit = false;
        TryRelock();
        throw platform::DatabaseError("The transaction was undone by an earlier error.", 3930);
    }
    mExplicit = false;
    CommitEngine();
    TryRelock();
}

void Transactions::RollBack() {
    if (!mExplicit) throw NoTransaction();
    mExplicit = false;
    if (mDatabase.InTransaction()) mDatabase.Run("rollback");
    TryRelock();
}

void Transactions::AddLocker() {
    if (!mExplicit && !mHeld) {
        mDatabase.Run(kBegin);
        mHeld = true;
    }
    ++mLockers;
}

void Transactions::RemoveLocker() noexcept {
    if (--mLockers > 0 || !mHeld) return;
    mHeld = false;
    if (mDatabase.InTransaction()) mDatabase.TryRun("rollback");
}

void Transactions::RequireIntact() {
    if (!mExplicit || mDatabase.InTransaction()) return;
    throw platform::DatabaseError("The transaction was undone by an earlier error.", 3930);
}

void Transactions::RegainLock() {
    if (IsLockHeld() || mLockers == 0) return;
    mDatabase.Run(kBegin);
    mHeld = true;
}

void Transactions::MakeDurable() {
    if (!mHeld) return;
    mHeld = false;
    CommitEngine();
    TryRelock();
}

void Transactions::DropChange() noexcept {
    if (!mHeld) return;
    mHeld = false;
    if (mDatabase.InTransaction()) mDatabase.TryRun("rollback");
    TryRelock();
}

// Without waiting: the change is done, and whoever waits for the lock has a right to it.
void Transactions::TryRelock() noexcept {
    if (mLockers == 0 || mExplicit || mDatabase.InTransaction()) return;
    const int timeout = mDatabase.Timeout();
    mDatabase.SetTimeout(0);
    mHeld = mDatabase.TryRun(kBegin) == SQLITE_OK;
    mDatabase.SetTimeout(timeout);
}

}  // namespace kelvane::sqlite
