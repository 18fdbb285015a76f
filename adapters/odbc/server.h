// One database server as a session sees it: connecting and connecting again, running the steps of a
// plan, the engine's one transaction; and what its failures become.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "adapters/odbc/dialects.h"
#include "adapters/odbc/engine_dialect.h"
#include "adapters/odbc/link.h"

namespace kelvane::odbc {

class Server : public Channel {
public:
    // Connects. Throws DatabaseError.
    Server(const OdbcSettings& settings, std::string_view connectionString);
    ~Server() override { mLink.Disconnect(); }

    EngineDialect& Dialect() const { return *mDialect; }
    DatabaseEngine Engine() const { return mEngine; }

    bool IsConnected() const { return mLink.IsConnected(); }
    // Whether the last transaction ended with the connection.
    bool WasLost() const { return mWasLost; }
    // Outside a transaction: connects again when the connection has been lost. Throws
    // ConnectionLost.
    void RequireConnected();

    ResultRows Run(const std::string& text) override;
    ResultRows RunOne(const RunStep& step, bool wantsRows);
    // Outside a transaction: runs steps that each give rows in one call. Empty when the results are
    // not those of the steps, which a driver that counts otherwise may do.
    std::vector<ResultRows> RunTogether(const std::vector<RunStep>& steps);

    // False also when a failure has undone the transaction.
    bool InTransaction() const override { return mInTransaction; }
    void StartTransaction();
    // The same for one that sees one moment and only reads.
    void StartSnapshot();
    // Throws CommitInDoubt when the answer was lost; after any other error nothing was saved.
    void Commit();
    // Throws nothing: when the server cannot be told, it undoes the transaction by itself.
    void RollBack() noexcept;

private:
    void Connect();
    void ConnectLink();
    void Disconnect() noexcept;
    Failure Meaning(const DriverFailure& failure) const;
    // Throws what a failed call means.
    [[noreturn]] void Fail(const DriverFailure& reported);
    // What has to be done after a failure, so that the next statement finds things as they are.
    void Settle(const Failure& failure);
    // After a transaction: what it was begun with is the session's no longer.
    void LeaveSnapshot();

    const OdbcSettings mSettings;
    const database::Secret mConnectionString;
    std::string mDialectKeywords;  // what the engine's dialect adds to it
    DatabaseEngine mEngine = DatabaseEngine::SqlServer;
    std::unique_ptr<EngineDialect> mDialect;
    Link mLink;
    bool mInTransaction = false;
    bool mInSnapshot = false;
    bool mWasLost = false;
};

}  // namespace kelvane::odbc
