#include "adapters/odbc/server_transaction.h"

namespace kelvane::odbc {

void ServerTransaction::Start() {
    mServer.RequireConnected();
    mServer.StartTransaction();
}

void ServerTransaction::StartSnapshot() {
    mServer.RequireConnected();
    mServer.StartSnapshot();
}

void ServerTransaction::LockRows(bool withoutWaiting) {
    Start();
    const Purpose purpose{
        .locks = true, .lockOnly = true, .lockAgain = withoutWaiting, .inTransaction = true};
    try {
        for (const std::string& batch : mBatches) {
            const Plan plan = mServer.Dialect().PlanBatch(batch, purpose, mServer);
            for (const RunStep& step : plan.steps) mServer.RunOne(step, false);
        }
    } catch (...) {
        if (mServer.InTransaction()) mServer.RollBack();
        throw;
    }
}

bool ServerTransaction::TryLock() noexcept {
    if (!mServer.IsConnected()) return false;
    try {
        LockRows(true);
        return true;
    } catch (...) {
        return false;
    }
}

void ServerTransaction::RequireConnection() const {
    if (!mServer.WasLost()) return;
    throw platform::ConnectionLost("与数据库服务器的连接已经断开，本次操作没有保存");
}

}  // namespace kelvane::odbc
