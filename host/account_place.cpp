#include "host/account_place.h"

#include "adapters/sqlite/connection.h"
#include "host/host_tables.h"

namespace kelvane::host {

std::string ConnectionStringOf(const std::string& path) {
    return "Data Source=\"" + path + "\"";
}

std::shared_ptr<platform::Connection> NewConnection() {
    std::vector<std::string> required;
    for (const auto& table : AccountTables(0)) required.push_back(table.name);
    return sqlite::CreateConnection(std::move(required));
}

std::shared_ptr<platform::Connection> OpenAccount(const std::string& path) {
    auto connection = NewConnection();
    connection->SetConnectionString(ConnectionStringOf(path));
    connection->SetCursorLocation(platform::CursorLocation::Client);
    connection->Open({}, {}, -1);
    return connection;
}

}  // namespace kelvane::host
