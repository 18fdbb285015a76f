#include "host/account/account_place.h"

#include <utility>

#include "adapters/odbc/odbc_connection.h"
#include "adapters/sqlite/connection.h"
#include "host/account/host_tables.h"
#include "host/account/item_class.h"
#include "host/surroundings/batch_folder.h"
#include "host/surroundings/server_name.h"
#include "platform/connection_string.h"
#include "platform/native_path.h"

namespace kelvane::host {

namespace {

odbc::OdbcSettings ServerSettings(const ServerTimeouts& timeouts, database::SharedSecret password) {
    odbc::OdbcSettings settings;
    settings.password = std::move(password);
    settings.connectTimeout = timeouts.connect;
    settings.queryTimeout = timeouts.query;
    settings.lockTimeout = timeouts.lock * 1000;
    for (const auto& table : AccountTables(kMaxKeyFields)) {
        if (!table.key.empty()) settings.keys.push_back({table.name, table.key});
    }
    return settings;
}

}  // namespace

AccountPlace::AccountPlace(bool onServer, std::string name, std::string connectionString)
    : mOnServer(onServer), mName(std::move(name)), mConnectionString(std::move(connectionString)) {}

AccountPlace AccountPlace::File(const std::string& path) {
    return {false, path, ConnectionStringOf(path)};
}

AccountPlace AccountPlace::Database(const std::string& connectionString,
                                    const ServerTimeouts& timeouts,
                                    database::SharedSecret password) {
    AccountPlace place(true, ServerNameOf(connectionString), connectionString);
    place.mTimeouts = timeouts;
    place.mPassword = std::move(password);
    return place;
}

AccountPlace AccountPlace::ForReading() const {
    AccountPlace place = *this;
    if (mOnServer) return place;
    place.mCopy = sqlite::CopyOfProtected(mName);
    if (place.mCopy) place.mConnectionString = ConnectionStringOf(place.mCopy->Path());
    return place;
}

std::string AccountPlace::AboutAccount(const std::string& text) const {
    return mCopy ? mCopy->AboutAccount(text) : text;
}

std::string AccountPlace::ShortName() const {
    return mOnServer ? mName : platform::Utf8Of(platform::PathOf(mName).filename());
}

std::shared_ptr<platform::Connection> AccountPlace::NewConnection() const {
    if (!mOnServer) return host::NewConnection();
    return std::make_shared<odbc::OdbcConnection>(ServerSettings(mTimeouts, mPassword));
}

std::shared_ptr<platform::Connection> AccountPlace::Open() const {
    auto connection = NewConnection();
    connection->SetConnectionString(mConnectionString);
    connection->SetCursorLocation(platform::CursorLocation::Client);
    connection->Open({}, {}, -1);
    return connection;
}

std::filesystem::path BatchFolderOf(const AccountPlace& account) {
    return account.IsOnServer() ? BatchFolderOfServer(account.ConnectionString())
                                : BatchFolderOfFile(account.Name());
}

std::string MapFileOf(const AccountPlace& account) {
    return MapFileAt(account.IsOnServer() ? MapPlaceOfServer(account.ConnectionString())
                                          : MapPlaceOfFile(account.Name()));
}

std::string ConnectionStringOf(const std::string& path) {
    return "Data Source=" + platform::MarkedValue(path, platform::ValueMarks::Quotes);
}

std::shared_ptr<platform::Connection> NewConnection() {
    std::vector<std::string> required;
    for (const auto& table : AccountTables(0)) required.push_back(table.name);
    return sqlite::CreateConnection(std::move(required));
}

std::shared_ptr<platform::Connection> OpenAccount(const std::string& path) {
    return AccountPlace::File(path).Open();
}

}  // namespace kelvane::host
