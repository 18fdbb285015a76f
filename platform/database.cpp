#include "platform/database.h"

namespace kelvane::platform {

Transaction::~Transaction() {
    if (!mOpen) return;
    try {
        mConnection.RollBack();
    } catch (...) {
        // The connection is gone, and the transaction with it.
        mOpen = false;
    }
}

// A commit that fails leaves the scope open, so that its end rolls back what is still there.
void Transaction::Commit() {
    mConnection.Commit();
    mOpen = false;
}

void Transaction::RollBack() {
    mOpen = false;
    mConnection.RollBack();
}

Snapshot::Snapshot(Connection& connection) : mConnection(connection) {
    if (mConnection.mSnapshots == 0) mConnection.BeginSnapshot();
    ++mConnection.mSnapshots;
}

Snapshot::~Snapshot() {
    if (--mConnection.mSnapshots > 0) return;
    try {
        mConnection.RollBack();
    } catch (...) {
        return;  // the connection is gone, and nothing was written
    }
}

}  // namespace kelvane::platform
