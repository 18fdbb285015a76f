// What a session of any engine does with announcements around its transactions.
#pragma once

#include <utility>

#include "adapters/database/announced_queries.h"
#include "adapters/database/transactions.h"
#include "platform/database.h"

namespace kelvane::database {

// `Result`: what a query of the engine returned.
template <typename Result>
class AnnouncingSession {
public:
    void Begin() {
        mAnnounced.End();
        mTransactions.Begin();
    }
    void Commit() {
        mAnnounced.End();
        mTransactions.Commit();
    }
    void RollBack() {
        mAnnounced.End();
        mTransactions.RollBack();
    }
    void BeginSnapshot() {
        mAnnounced.End();
        mTransactions.BeginSnapshot();
    }

    // What is asked for right behind the announced queries.
    void AnnounceChanges(platform::ChangeBehind changeOf) {
        mAnnounced.Changes().Announce(std::move(changeOf));
    }

protected:
    // `engine`, which may be made after this, is not used before it is there or after it is gone.
    explicit AnnouncingSession(TransactionEngine& engine) : mTransactions(engine) {}
    ~AnnouncingSession() = default;

    AnnouncedQueries<Result> mAnnounced;
    Transactions mTransactions;
};

}  // namespace kelvane::database
