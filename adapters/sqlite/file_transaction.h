// The one transaction of a connection to an account file. It holds the file's write lock from its
// start, so that locking rows needs nothing more.
#pragma once

#include "adapters/database/transactions.h"

namespace kelvane::sqlite {

class Database;

class FileTransaction : public database::TransactionEngine {
public:
    explicit FileTransaction(Database& database) : mDatabase(database) {}

    bool InTransaction() const override;
    // Waits for others as long as the connection does. Throws DatabaseBusy.
    void Start() override;
    void StartSnapshot() override;
    void Commit() override;
    void RollBack() override;
    void Lock() override { Start(); }
    bool TryLock() noexcept override;

private:
    Database& mDatabase;
};

}  // namespace kelvane::sqlite
