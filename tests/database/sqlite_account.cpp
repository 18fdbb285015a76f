#include "tests/database/sqlite_account.h"

#include <atomic>
#include <filesystem>

#include "adapters/sqlite/connection.h"
#include "adapters/sqlite/schema.h"
#include "tests/support/test_tables.h"

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

void CreateSqliteAccount(const std::string& path) {
    sqlite::CreateAccount(path, support::ProbingTables());
}

std::shared_ptr<platform::Connection> ConnectToSqlite(const std::string& path, int timeout) {
    std::shared_ptr<platform::Connection> connection = sqlite::CreateConnection();
    connection->SetConnectionString("Data Source=\"" + path +
                                    "\";Timeout=" + std::to_string(timeout));
    connection->Open("", "", -1);
    return connection;
}

}  // namespace kelvane::database_test
