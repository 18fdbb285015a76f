#include "adapters/odbc/odbc_connection.h"

#include <utility>

#include "adapters/odbc/connection_words.h"
#include "adapters/odbc/odbc_record_set.h"
#include "adapters/odbc/session.h"

namespace kelvane::odbc {

using platform::DatabaseError;
using platform::LockType;

OdbcConnection::OdbcConnection(OdbcSettings settings) : mSettings(std::move(settings)) {}

OdbcConnection::~OdbcConnection() = default;

void OdbcConnection::SetConnectionString(std::string_view text) {
    mConnectionString = text;
}

void OdbcConnection::Open(std::string_view user, std::string_view password, int) {
    if (mSession) throw DatabaseError("The connection is open already.");
    mSession = std::make_shared<Session>(mSettings, WithLogin(mConnectionString, user, password));
}

void OdbcConnection::Close() {
    RequireOpen();
    mSession.reset();
}

int OdbcConnection::State() const {
    return mSession ? platform::kStateOpen : 0;
}

Session& OdbcConnection::RequireOpen() const {
    if (!mSession) throw DatabaseError("Operation is not allowed when the connection is closed.");
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

void OdbcConnection::DoExecute(const std::string& statement) {
    RequireOpen().Run(statement, {});
}

std::unique_ptr<platform::RecordSet> OdbcConnection::DoOpenRecordSet(
    const std::string& statement, const platform::RecordSetOptions& options) {
    Session& session = RequireOpen();
    const bool locks = options.lock == LockType::Pessimistic;
    std::optional<Session::Locker> locker;
    Result result;
    if (locks && !session.IsExplicit()) {
        result = session.RunLocked(statement, locker.emplace());
    } else {
        result = session.Run(
            statement,
            {.wantsRows = true, .changeable = options.lock != LockType::ReadOnly, .locks = locks});
    }
    return std::make_unique<OdbcRecordSet>(mSession, std::move(result), options.lock, locker);
}

}  // namespace kelvane::odbc
