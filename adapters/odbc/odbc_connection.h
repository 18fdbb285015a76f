// The account database on a server: platform::Connection through ODBC, with any driver and any
// connection string. SQL Server's dialect is what is sent as it stands, also to engines that are
// not known by name; another engine has an EngineDialect of its own.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "adapters/database/secret.h"
#include "platform/database.h"

namespace kelvane::odbc {

enum class DatabaseEngine { SqlServer, PostgreSql };

// The columns that identify a row of a table.
struct TableKey {
    std::string table;
    std::vector<std::string> columns;
};

struct OdbcSettings {
    int connectTimeout = 15;  // seconds; 0: the driver's own
    int queryTimeout = 60;    // seconds; 0: none
    int lockTimeout = 5000;   // milliseconds to wait for others' locks, where the engine can
    std::vector<TableKey> keys;
    // Of a string that names a user without a password; null: none.
    database::SharedSecret password = nullptr;
};

class Session;

// SetConnectionString() takes any ODBC connection string; Open()'s user and password, when not
// empty, become its UID and PWD, and otherwise the settings' password becomes its PWD. No error,
// log or other text ever holds the string or the password, nor does memory that is not the driver's
// keep a password of the settings in the open.
//
// A record set is read whole when it is opened. One opened with LockType::Pessimistic, or inside a
// transaction with a HOLDLOCK hint to be changed, locks its rows against other writers by a
// statement of its own before the given one.
//
// Failures: DatabaseBusy when others hold what a statement needs for longer than the time-outs, and
// for the victim of a deadlock, whose transaction is gone; ConnectionLost when the server does not
// answer any more; CommitInDoubt when a commit was sent and its answer did not come. After a loss
// every statement inside the transaction fails until RollBack(); outside one, the next statement
// connects again by itself.
class OdbcConnection final : public platform::Connection {
public:
    explicit OdbcConnection(OdbcSettings settings = {});
    ~OdbcConnection() override;

    void SetConnectionString(std::string_view text) override;
    void SetCursorLocation(platform::CursorLocation) override {}
    void Open(std::string_view user, std::string_view password, int options) override;
    void Close() override;
    int State() const override;

    // The engine behind the open connection, by the name it gives itself.
    DatabaseEngine Engine() const;

    void Begin() override;
    void Commit() override;
    void RollBack() override;
    void BeginSnapshot() override;
    // Outside a transaction announced queries go to the server together, each text once.
    void ReadAhead(std::span<const platform::StatementText> queries,
                   const platform::RecordSetOptions& options) override;
    void AnnounceChanges(platform::ChangeBehind changeOf) override;

protected:
    void DoExecute(const std::string& statement) override;
    std::unique_ptr<platform::RecordSet> DoOpenRecordSet(
        const std::string& statement, const platform::RecordSetOptions& options) override;

private:
    Session& RequireOpen() const;

    OdbcSettings mSettings;
    std::string mConnectionString;
    std::shared_ptr<Session> mSession;
};

}  // namespace kelvane::odbc
