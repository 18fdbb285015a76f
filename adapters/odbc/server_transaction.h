// The one transaction of a connection to a server. Rows are locked by running the batches that
// locked them, so every lock begins with those of the record sets that are open.
#pragma once

#include <list>
#include <string>

#include "adapters/database/transactions.h"
#include "adapters/odbc/server.h"

namespace kelvane::odbc {

class ServerTransaction : public database::TransactionEngine {
public:
    using Locker = std::list<std::string>::iterator;

    // `server` must outlive it.
    explicit ServerTransaction(Server& server) : mServer(server) {}

    bool InTransaction() const override { return mServer.InTransaction(); }
    void Start() override;
    void StartSnapshot() override;
    void Commit() override { mServer.Commit(); }
    void RollBack() override { mServer.RollBack(); }
    void Lock() override { LockRows(false); }
    bool TryLock() noexcept override;
    void RequireConnection() const override;

    // A batch that locks rows until it is removed.
    Locker Add(std::string batch) { return mBatches.emplace(mBatches.end(), std::move(batch)); }
    void Remove(Locker locker) noexcept { mBatches.erase(locker); }

private:
    void LockRows(bool withoutWaiting);

    Server& mServer;
    std::list<std::string> mBatches;
};

}  // namespace kelvane::odbc
