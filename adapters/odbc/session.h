// An open account on a server: batches, queries that were announced, and changes to rows.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "adapters/database/announcing_session.h"
#include "adapters/odbc/engine_dialect.h"
#include "adapters/odbc/server_transaction.h"

namespace kelvane::odbc {

// What a query returned.
struct Result {
    ResultRows rows;
    RowSource source;
    // The transaction that keeps the rows locked; 0: none does.
    long lockedIn = 0;
};

class Session : public database::AnnouncingSession<Result> {
public:
    using Locker = ServerTransaction::Locker;

    Session(const OdbcSettings& settings, std::string_view connectionString)
        : AnnouncingSession(mTransaction), mServer(settings, connectionString) {}

    bool IsExplicit() const { return mTransactions.IsExplicit(); }
    bool IsSnapshot() const { return mTransactions.IsSnapshot(); }

    // Runs a batch. Throws DatabaseError for the first statement that fails; outside a transaction
    // those before it stay done.
    Result Run(std::string_view batch, Purpose purpose);

    // Which queries Answer() will be asked next; an empty list ends what was announced before.
    void Announce(std::span<const platform::StatementText> queries, bool changeable);
    // The rows of the next announced query, when `query` is it and could be read ahead: together
    // with those behind it. A failure of such a batch is nobody's: each query is then run alone.
    // Throws ConnectionLost.
    std::optional<Result> Answer(const std::string& query, bool changeable);
    // Whether `change` is announced behind those queries and is made: together with those behind
    // the other answers that are there, all or none of them. False: it has to be run by itself.
    // Throws ConnectionLost.
    bool MakeAnnounced(const std::string& change, bool changeable);

    // Runs a query whose rows stay locked until RemoveLocker(), outside an explicit transaction.
    Result RunLocked(std::string_view batch, Locker& locker);
    // Throws nothing.
    void RemoveLocker(Locker locker) noexcept;

    // Makes a change to exactly one row; `lockedIn` is the row's Result's. Throws DatabaseError
    // when the row is gone or has been changed.
    void Change(RowChange change, long lockedIn);

    Server& Engine() { return mServer; }

private:
    Result RunPlan(const Plan& plan, const Purpose& purpose);
    void ReadAhead(bool changeable);
    void MakeTogether(bool changeable);

    Server mServer;
    ServerTransaction mTransaction{mServer};
};

}  // namespace kelvane::odbc
