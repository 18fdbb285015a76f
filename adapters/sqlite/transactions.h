// Who holds the account's write lock on one connection: an explicit transaction, or record sets
// that keep their rows locked outside of one. The engine knows one transaction at a time; both live
// in it, and what is changed under the record sets' lock alone is made durable at once.
#pragma once

namespace kelvane::sqlite {

class Database;

class Transactions {
public:
    explicit Transactions(Database& database) : mDatabase(database) {}

    void Begin();
    void Commit();
    void RollBack();
    bool IsExplicit() const { return mExplicit; }

    // Takes the write lock for a record set, waiting for others as long as the connection does.
    // Throws DatabaseBusy.
    void AddLocker();
    // Gives it back; throws nothing.
    void RemoveLocker() noexcept;

    // Before a statement runs: throws when the explicit transaction was undone by a failure, so
    // that nothing is kept of what was meant to belong to it.
    void RequireIntact();
    // Whether the write lock has been held ever since the last record set asked for it.
    bool IsLockHeld() const { return mExplicit || mHeld; }
    // Takes the lock again if it had been lost to another operator in between. Throws DatabaseBusy.
    void RegainLock();
    // After a change outside an explicit transaction.
    void MakeDurable();
    // After a failed change outside an explicit transaction.
    void DropChange() noexcept;

private:
    void CommitEngine();
    void TryRelock() noexcept;

    Database& mDatabase;
    bool mExplicit = false;
    int mLockers = 0;
    bool mHeld = false;  // the engine's transaction is the lockers' own
};

}  // namespace kelvane::sqlite
