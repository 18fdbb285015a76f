// An account of its own for each test: a new file with the component's tables, gone afterwards.
#pragma once

#include <unistd.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "adapters/sqlite/connection.h"
#include "adapters/sqlite/schema.h"
#include "data/account_tables.h"
#include "platform/database.h"

namespace kelvane::support {

inline std::vector<sqlite::TableDescription> EmbeddedTables() {
    std::vector<sqlite::TableDescription> tables;
    for (const data::AccountTable& table : data::AccountTables()) {
        sqlite::TableDescription description;
        description.name = table.name;
        for (const data::AccountColumn& column : table.columns) {
            const bool isKey = column.role == data::ColumnRole::Key;
            const std::string name(column.name);
            description.columns.push_back({name, std::string(column.type), !isKey});
            if (isKey) description.key.push_back(name);
        }
        for (const data::AccountIndex& index : table.indexes) {
            std::vector<std::string> columns;
            for (const std::string_view name : index) {
                if (!name.empty()) columns.emplace_back(name);
            }
            description.indexes.push_back(columns);
        }
        tables.push_back(std::move(description));
    }
    return tables;
}

class EmbeddedAccount {
public:
    // `name` tells whose folder it is; the process makes it distinct among runs at the same time.
    explicit EmbeddedAccount(const std::string& name,
                             const std::vector<sqlite::TableDescription>& tables = EmbeddedTables())
        : mFolder(std::filesystem::temp_directory_path() /
                  ("kelvane_" + std::to_string(getpid()) + "_" + name)) {
        std::filesystem::remove_all(mFolder);
        std::filesystem::create_directories(mFolder);
        sqlite::CreateAccount(Path(), tables);
    }
    ~EmbeddedAccount() {
        std::error_code ignored;
        std::filesystem::remove_all(mFolder, ignored);
    }
    EmbeddedAccount(const EmbeddedAccount&) = delete;
    EmbeddedAccount& operator=(const EmbeddedAccount&) = delete;

    std::string Path() const { return (mFolder / "account.db").string(); }

    // For a connection that waits `timeout` milliseconds for another's lock.
    std::string ConnectionString(int timeout = 50) const {
        return "Data Source=\"" + Path() + "\";Timeout=" + std::to_string(timeout);
    }

    // An open connection.
    std::shared_ptr<platform::Connection> Connect(int timeout = 50) const {
        auto connection = sqlite::CreateConnection();
        connection->SetConnectionString(ConnectionString(timeout));
        connection->SetCursorLocation(platform::CursorLocation::Client);
        connection->Open("", "", -1);
        return connection;
    }

private:
    std::filesystem::path mFolder;
};

}  // namespace kelvane::support
