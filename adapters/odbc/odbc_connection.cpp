#include "adapters/odbc/odbc_connection.h"

#include <utility>

#include "adapters/database/refusals.h"
#include "adapters/odbc/server_row_writer.h"
#include "adapters/odbc/session.h"
#include "platform/connection_string.h"

namespace kelvane::odbc {

using database::BufferedRecordSet;
using platform::LockType;

namespace {

bool IsChangeable(const platform::RecordSetOptions& options) {
    return options.lock != LockType::ReadOnly;
}

// An empty user leaves the string's.
std::string WithUser(const std::string& text, std::string_view user) {
    return user.empty() ? text : platform::WithValue(text, platform::kUserNames, user);
}

}  // namespace

OdbcConnection::OdbcConnection(OdbcSettings settings) : mSettings(std::move(settings)) {}

OdbcConnection::~OdbcConnection() = default;

void OdbcConnection::SetConnectionString(std::string_view text) {
    mConnectionString = text;
}

void OdbcConnection::Open(std::string_view user, std::string_view password, int) {
    if (mSession) throw database::ConnectionIsOpen();
    std::string text = WithUser(mConnectionString, user);
    const database::WipedAfterwards wiped(text);
    if (!password.empty()) {
        text = platform::WithValue(text, platform::kPasswordNames, password);
    } else if (mSettings.password) {
        text = platform::WithValue(text, platform::kPasswordNames, mSettings.password->Text());
    }
    mSession = std::make_shared<Session>(mSettings, text);
}

void OdbcConnection::Close() {
    RequireOpen();
    mSession.reset();
}

int OdbcConnection::State() const {
    return mSession ? platform::kStateOpen : 0;
}

Session& OdbcConnection::RequireOpen() const {
    if (!mSession) throw database::ConnectionIsClosed();
    return *mSession;
}

DatabaseEngine OdbcConnection::Engine() const {
    return RequireOpen().Engine().Engine();
}

void OdbcConnection::Begin() {
    RequireOpen().Begin();
}
void OdbcConnection::Commit() {
    RequireOpen().Commit();
}
void OdbcConnection::RollBack() {
    RequireOpen().RollBack();
}
void OdbcConnection::BeginSnapshot() {
    RequireOpen().BeginSnapshot();
}

void OdbcConnection::ReadAhead(std::span<const platform::StatementText> queries,
                               const platform::RecordSetOptions& options) {
    if (!mSession) return;
    if (options.lock == LockType::Pessimistic) queries = {};
    mSession->Announce(queries, IsChangeable(options));
}

void OdbcConnection::AnnounceChanges(platform::ChangeBehind changeOf) {
    if (mSession) mSession->AnnounceChanges(std::move(changeOf));
}

void OdbcConnection::DoExecute(const std::string& statement) {
    Session& session = RequireOpen();
    session.Announce({}, false);
    session.Run(statement, {});
}

std::unique_ptr<platform::RecordSet> OdbcConnection::DoOpenRecordSet(
    const std::string& statement, const platform::RecordSetOptions& options) {
    Session& session = RequireOpen();
    const bool locks = options.lock == LockType::Pessimistic;
    const bool changeable = IsChangeable(options) && !session.IsSnapshot();
    std::optional<Session::Locker> locker;
    Result result;
    if (locks && !session.IsExplicit()) {
        result = session.RunLocked(statement, locker.emplace());
    } else if (auto answer = locks ? std::nullopt : session.Answer(statement, changeable)) {
        result = std::move(*answer);
    } else if (!locks && session.MakeAnnounced(statement, changeable)) {
        // A change has no rows.
    } else {
        result =
            session.Run(statement, {.wantsRows = true, .changeable = changeable, .locks = locks});
    }
    auto writer = std::make_unique<ServerRowWriter>(mSession, result, locker);
    auto columns = std::make_shared<BufferedRecordSet::Columns>(std::move(result.rows.columns));
    columns->resize(columns->size() - static_cast<std::size_t>(result.rows.hiddenColumns));
    return std::make_unique<BufferedRecordSet>(std::move(result.rows), std::move(columns),
                                               changeable && !result.source.table.empty(),
                                               std::move(writer));
}

}  // namespace kelvane::odbc
