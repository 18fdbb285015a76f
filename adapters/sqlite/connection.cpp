#include "adapters/sqlite/connection.h"

#include <optional>
#include <span>
#include <utility>

#include "adapters/database/refusals.h"
#include "adapters/sqlite/account_copy.h"
#include "adapters/sqlite/account_file.h"
#include "adapters/sqlite/companions.h"
#include "adapters/sqlite/connection_string.h"
#include "adapters/sqlite/failures.h"
#include "adapters/sqlite/file_row_writer.h"
#include "adapters/sqlite/session.h"
#include "adapters/sqlite/stored_definition.h"

namespace kelvane::sqlite {

namespace {

using database::BufferedRecordSet;
using platform::LockType;

// How an account is used. Making a commit durable is the file system's word, so it is asked for.
constexpr const char* kSettings =
    "pragma cell_size_check = on; pragma synchronous = full; pragma cache_size = -16384;";

class SqliteConnection : public platform::Connection {
public:
    explicit SqliteConnection(std::vector<std::string> requiredTables)
        : mRequiredTables(std::move(requiredTables)) {}

    void SetConnectionString(std::string_view text) override { mConnectionString = text; }
    void SetCursorLocation(platform::CursorLocation) override {}

    void Open(std::string_view, std::string_view, int) override {
        if (mSession) throw database::ConnectionIsOpen();
        const ConnectionTarget target = ParseConnectionString(mConnectionString);
        const std::string path = RealPath(target.path);
        RequireAccountFile(path);
        if (IsWriteProtected(path)) throw AccountError(path, "是只读的，不能写入");
        if (HasUnfinishedChanges(path)) TryOnCopy(path, target.timeout);
        auto session = std::make_shared<Session>(path, target.timeout);
        Prepare(*session);
        mSession = std::move(session);
    }

    void Close() override {
        // Closing puts a log in order that a program left when it died.
        RequireOpen().Engine().ReleaseLog();
        mSession.reset();
    }

    int State() const override { return mSession ? platform::kStateOpen : 0; }

    void Begin() override { RequireOpen().Begin(); }
    void Commit() override { RequireOpen().Commit(); }
    void RollBack() override { RequireOpen().RollBack(); }
    void BeginSnapshot() override { RequireOpen().BeginSnapshot(); }

    void ReadAhead(std::span<const platform::StatementText> queries,
                   const platform::RecordSetOptions& options) override {
        if (!mSession) return;
        if (queries.empty()) return mSession->EndAnnounced();
        if (options.lock == LockType::Pessimistic) queries = {};
        mSession->Announce(queries, options.lock != LockType::ReadOnly);
    }
    void AnnounceChanges(platform::ChangeBehind changeOf) override {
        if (mSession) mSession->AnnounceChanges(std::move(changeOf));
    }

protected:
    void DoExecute(const std::string& statement) override {
        Session& session = RequireOpen();
        session.Announce({}, false);
        session.Run(statement, false, false);
    }

    std::unique_ptr<platform::RecordSet> DoOpenRecordSet(
        const std::string& statement, const platform::RecordSetOptions& options) override {
        Session& session = RequireOpen();
        if (options.lock == LockType::Pessimistic) session.Transactions().RequireChangeable();
        const bool locks =
            options.lock == LockType::Pessimistic && !session.Transactions().IsExplicit();
        auto writer = std::make_unique<FileRowWriter>(mSession, locks);
        const bool wantsChange =
            options.lock != LockType::ReadOnly && !session.Transactions().IsSnapshot();
        std::optional<Result> answer;
        if (options.lock == LockType::Pessimistic) {
            session.Announce({}, false);
        } else {
            answer = session.Answer(statement, wantsChange);
        }
        Result result;
        if (answer) {
            result = std::move(*answer);
        } else if (!session.TakeMade(statement)) {
            result = session.Run(statement, true, wantsChange);
        }
        if (!result.origin) {
            return std::make_unique<BufferedRecordSet>(std::move(result.rows), nullptr, false,
                                                       std::move(writer));
        }
        writer->SetRows(result.origin->table, result.lockedIn);
        return std::make_unique<BufferedRecordSet>(
            std::move(result.rows),
            std::shared_ptr<const BufferedRecordSet::Columns>(result.origin,
                                                              &result.origin->columns),
            wantsChange && result.origin->hasRowIdentity, std::move(writer));
    }

private:
    Session& RequireOpen() {
        if (!mSession) throw database::ConnectionIsClosed();
        return *mSession;
    }

    // Damage is found now and not in the middle of a day's work.
    static void RequireIntact(Database& database) {
        Statement check(database, "pragma quick_check(1)", false);
        const int code = check.Step();
        if (code != SQLITE_ROW) database.Fail(code);
        const std::string answer = check.Text(0);
        if (answer != "ok") throw AccountError(database.Path(), "已损坏（" + answer + "）");
        database.ForgetPages();
    }

    void Prepare(Session& session) {
        Database& database = session.Engine();
        const std::string& path = database.Path();
        if (HasLog(path)) database.KeepLog();
        database.Run(kSettings);
        // The log may hold other numbers than the file.
        RequireLayout(path, database.Number("pragma application_id"),
                      database.Number("pragma user_version"));
        // Before the check of the content, which would run what the definitions say.
        RequirePlainDefinitions(database, mRequiredTables);
        RequireIntact(database);
        for (const std::string& table : mRequiredTables) {
            Statement statement(database,
                                "select count(*) from sqlite_schema where type = 'table' and name "
                                "= ?1 collate nocase",
                                false);
            const tsql::Datum name = table;
            statement.Bind(1, name);
            const int code = statement.Step();
            if (code != SQLITE_ROW) database.Fail(code);
            if (statement.Integer(0) == 0) throw AccountError(path, "缺少数据表 " + table);
        }
    }

    // Throws what opening the account would, without changing it.
    void TryOnCopy(const std::string& path, int timeout) {
        const AccountCopy copy(path);
        try {
            Session session(copy.Path(), timeout);
            Prepare(session);
        } catch (const platform::DatabaseError& refused) {
            throw platform::DatabaseError(copy.AboutAccount(refused.what()), refused.NativeCode());
        }
    }

    std::vector<std::string> mRequiredTables;
    std::string mConnectionString;
    std::shared_ptr<Session> mSession;
};

}  // namespace

std::shared_ptr<platform::Connection> CreateConnection(std::vector<std::string> requiredTables) {
    return std::make_shared<SqliteConnection>(std::move(requiredTables));
}

}  // namespace kelvane::sqlite
