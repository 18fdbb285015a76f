// Who holds locks in one connection: an explicit transaction, or record sets that keep their rows
// locked outside of one. An engine knows one transaction at a time; both live in it, and what is
// changed under the record sets' lock alone is made durable at once.
#pragma once

namespace kelvane::database {

// An engine's one transaction, and the lock that the record sets need. Throws as a connection does.
class TransactionEngine {
public:
    virtual ~TransactionEngine() = default;
    TransactionEngine() = default;
    TransactionEngine(const TransactionEngine&) = delete;
    TransactionEngine& operator=(const TransactionEngine&) = delete;

    // False also when a failure has undone the transaction.
    virtual bool InTransaction() const = 0;
    virtual void Start() = 0;
    // The same for a transaction that sees one moment and changes nothing.
    virtual void StartSnapshot() = 0;
    // Afterwards no transaction is open, also when it throws.
    virtual void Commit() = 0;
    virtual void RollBack() = 0;

    // Starts a transaction that has the rows of all lockers locked, waiting for others as long as
    // the connection does; when it throws, none is open.
    virtual void Lock() = 0;
    // The same without waiting. False: no transaction is open.
    virtual bool TryLock() noexcept = 0;

    // After the transaction was undone: throws ConnectionLost when it went with the connection.
    virtual void RequireConnection() const {}
};

class Transactions {
public:
    // `engine` must outlive it.
    explicit Transactions(TransactionEngine& engine) : mEngine(engine) {}

    void Begin();
    void BeginSnapshot();
    void Commit();
    void RollBack();
    bool IsExplicit() const { return mExplicit; }
    // The transaction is one that only reads.
    bool IsSnapshot() const { return mSnapshot; }
    // Before a change or a lock: throws when the transaction only reads.
    void RequireChangeable() const;

    // Starts a transaction for a record set that will lock its rows, unless one is open.
    void AddLocker();
    // Gives the record set's lock back; throws nothing.
    void RemoveLocker() noexcept;
    bool HasLockers() const { return mLockers > 0; }

    // Before a statement runs: throws when the explicit transaction was undone by a failure, so
    // that nothing is kept of what was meant to belong to it.
    void RequireIntact() const;

    // The transaction that is open, by a number of its own; 0 when there is none. Rows that were
    // read and locked in it are as they were read while it is the same.
    long Current() const { return mExplicit || IsHeld() ? mNumber : 0; }

    // Takes the lockers' lock again if it had been lost to another operator in between. Throws
    // DatabaseBusy.
    void RegainLock();
    // After a change outside an explicit transaction.
    void MakeDurable();
    // After a failed change outside an explicit transaction.
    void DropChange() noexcept;

private:
    bool IsHeld() const { return mHeld && mEngine.InTransaction(); }
    void Start();
    void TryRollBack() noexcept;
    void TryRelock() noexcept;

    TransactionEngine& mEngine;
    bool mExplicit = false;
    bool mSnapshot = false;  // so is the explicit transaction
    int mLockers = 0;
    bool mHeld = false;  // the engine's transaction is the lockers' own
    long mNumber = 0;    // of the transaction that was started last
};

}  // namespace kelvane::database
