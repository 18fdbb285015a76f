#include "adapters/sqlite/connection.h"

#include <utility>

#include "adapters/sqlite/account_file.h"
#include "adapters/sqlite/connection_string.h"
#include "adapters/sqlite/failures.h"
#include "adapters/sqlite/record_set.h"
#include "adapters/sqlite/session.h"

namespace kelvane::sqlite {

namespace {

using platform::DatabaseError;
using platform::LockType;

// How an account is used. Making a commit durable is the file system's word, so it is asked for.
constexpr const char* kSettings =
    "pragma trusted_schema = off; pragma synchronous = full; pragma cache_size = -16384;";

class SqliteConnection : public platform::Connection {
public:
    explicit SqliteConnection(std::vector<std::string> requiredTables)
        : mRequiredTables(std::move(requiredTables)) {}

    void SetConnectionString(std::string_view text) override { mConnectionString = text; }
    void SetCursorLocation(platform::CursorLocation) override {}

    void Open(std::string_view, std::string_view, int) override {
        if (mSession) throw DatabaseError("The connection is open already.");
        const ConnectionTarget target = ParseConnectionString(mConnectionString);
        RequireAccountFile(target.path);
        auto session = std::make_shared<Session>(target.path, target.timeout);
        Prepare(*session);
        mSession = std::move(session);
    }

    void Close() override {
        RequireOpen();
        mSession.reset();
    }

    int State() const override { return mSession ? platform::kStateOpen : 0; }

    void Begin() override { RequireOpen().Lock().Begin(); }
    void Commit() override { RequireOpen().Lock().Commit(); }
    void RollBack() override { RequireOpen().Lock().RollBack(); }

protected:
    void DoExecute(const std::string& statement) override {
        RequireOpen().Run(statement, false, false);
    }

    std::unique_ptr<platform::RecordSet> DoOpenRecordSet(
        const std::string& statement, const platform::RecordSetOptions& options) override {
        Session& session = RequireOpen();
        const bool locks = options.lock == LockType::Pessimistic && !session.Lock().IsExplicit();
        if (locks) session.Lock().AddLocker();
        try {
            Result result = session.Run(statement, true, options.lock != LockType::ReadOnly);
            return std::make_unique<SqliteRecordSet>(mSession, std::move(result), options.lock,
                                                     locks);
        } catch (...) {
            if (locks) session.Lock().RemoveLocker();
            throw;
        }
    }

private:
    Session& RequireOpen() {
        if (!mSession)
            throw DatabaseError("Operation is not allowed when the connection is closed.");
        return *mSession;
    }

    // Damage is found now and not in the middle of a day's work.
    static void RequireIntact(Database& database) {
        Statement check(database, "pragma quick_check(1)", false);
        const int code = check.Step();
        if (code != SQLITE_ROW) database.Fail(code);
        const std::string answer = check.Text(0);
        if (answer != "ok") throw AccountError(database.Path(), "已损坏（" + answer + "）");
    }

    void Prepare(Session& session) {
        Database& database = session.Engine();
        database.Run(kSettings);
        const std::string& path = database.Path();
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
        database.Run("pragma journal_mode = wal");
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
