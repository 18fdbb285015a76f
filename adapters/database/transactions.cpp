#include "adapters/database/transactions.h"

#include "adapters/database/refusals.h"

namespace kelvane::database {

void Transactions::Start() {
    mEngine.Start();
    ++mNumber;
}

void Transactions::Begin() {
    if (mExplicit) throw TransactionIsOpen();
    if (!IsHeld()) Start();
    mHeld = false;
    mExplicit = true;
}

void Transactions::BeginSnapshot() {
    if (mExplicit || IsHeld()) throw TransactionIsOpen();
    mEngine.StartSnapshot();
    ++mNumber;
    mHeld = false;
    mExplicit = mSnapshot = true;
}

void Transactions::RequireChangeable() const {
    if (mSnapshot) throw OnlyReading();
}

void Transactions::Commit() {
    if (!mExplicit) throw NoTransaction();
    try {
        RequireIntact();
        mExplicit = mSnapshot = false;
        mEngine.Commit();
    } catch (...) {
        mExplicit = mSnapshot = false;
        TryRelock();
        throw;
    }
    TryRelock();
}

void Transactions::RollBack() {
    if (!mExplicit) throw NoTransaction();
    mExplicit = mSnapshot = false;
    if (mEngine.InTransaction()) mEngine.RollBack();
    TryRelock();
}

void Transactions::AddLocker() {
    if (!mExplicit && !IsHeld()) {
        Start();
        mHeld = true;
    }
    ++mLockers;
}

void Transactions::RemoveLocker() noexcept {
    if (--mLockers > 0 || !mHeld) return;
    mHeld = false;
    TryRollBack();
}

void Transactions::RequireIntact() const {
    if (!mExplicit || mEngine.InTransaction()) return;
    mEngine.RequireConnection();
    throw TransactionUndone();
}

void Transactions::RegainLock() {
    if (mExplicit || mLockers == 0 || IsHeld()) return;
    mHeld = false;
    mEngine.Lock();
    ++mNumber;
    mHeld = true;
}

void Transactions::MakeDurable() {
    if (!IsHeld()) return;
    mHeld = false;
    mEngine.Commit();
    TryRelock();
}

void Transactions::DropChange() noexcept {
    if (!mHeld) return;
    mHeld = false;
    TryRollBack();
    TryRelock();
}

void Transactions::TryRollBack() noexcept {
    if (!mEngine.InTransaction()) return;
    try {
        mEngine.RollBack();
    } catch (...) {
        return;  // the engine undoes it by itself
    }
}

// Without waiting: the change is done, and whoever waits for the lock has a right to it.
void Transactions::TryRelock() noexcept {
    if (mLockers == 0 || mExplicit || mEngine.InTransaction()) return;
    mHeld = mEngine.TryLock();
    if (mHeld) ++mNumber;
}

}  // namespace kelvane::database
