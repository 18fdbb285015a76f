#include "tests/database/sqlite_account.h"

#include <atomic>
#include <filesystem>

#include "adapters/sqlite/connection.h"
#include "adapters/sqlite/schema.h"

namespace kelvane::database_test {

namespace fs = std::filesystem;

ScratchFolder::ScratchFolder() {
    static std::atomic<int> next{0};
    do {
        mPath = (fs::temp_directory_path() / ("kelvane_test_" + std::to_string(next++))).string();
    } while (!fs::create_directory(mPath));
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    fs::remove_all(mPath, ignored);
}

void CreateSqliteAccount(const std::string& path, const std::vector<Table>& tables) {
    std::vector<sqlite::TableDescription> descriptions;
    for (const Table& table : tables) {
        sqlite::TableDescription description{table.name, {}, table.key, table.indexes};
        for (const Column& column : table.columns) {
            description.columns.push_back({column.name, column.type, column.nullable});
        }
        descriptions.push_back(std::move(description));
    }
    sqlite::CreateAccount(path, descriptions);
}

std::shared_ptr<platform::Connection> ConnectToSqlite(const std::string& path, int timeout) {
    std::shared_ptr<platform::Connection> connection = sqlite::CreateConnection();
    connection->SetConnectionString("Data Source=\"" + path +
                                    "\";Timeout=" + std::to_string(timeout));
    connection->Open("", "", -1);
    return connection;
}

namespace {

class SqliteEngine : public Engine {
public:
    explicit SqliteEngine(const std::vector<Table>& tables) : mPath(mFolder.Path("account.kva")) {
        CreateSqliteAccount(mPath, tables);
    }
    std::shared_ptr<platform::Connection> Connect(int timeout) override {
        return ConnectToSqlite(mPath, timeout);
    }

private:
    ScratchFolder mFolder;
    std::string mPath;
};

}  // namespace

std::unique_ptr<Engine> MakeEngine(const std::vector<Table>& tables) {
    return std::make_unique<SqliteEngine>(tables);
}

}  // namespace kelvane::database_test
