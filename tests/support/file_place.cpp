#include "tests/support/file_place.h"

#include <unistd.h>

#include <atomic>
#include <filesystem>

#include "adapters/sqlite/connection.h"
#include "adapters/sqlite/database.h"
#include "adapters/sqlite/schema.h"

namespace kelvane::support {

namespace {

namespace fs = std::filesystem;

constexpr int kTimeout = 5000;

class FilePlace : public TestPlace {
public:
    explicit FilePlace(std::string path) : mPath(std::move(path)) {}

    EngineKind Engine() const override { return EngineKind::Sqlite; }
    std::vector<std::string> ProgramWords() const override { return {mPath}; }
    std::string ConnectionString() const override { return "Data Source=\"" + mPath + "\""; }

    std::shared_ptr<platform::Connection> NewConnection(
        int timeout, const std::vector<tsql::TableDescription>& /*keys*/) const override {
        auto connection = sqlite::CreateConnection();
        connection->SetConnectionString(ConnectionString() + ";Timeout=" + std::to_string(timeout));
        return connection;
    }

    void CreateTables(const std::vector<tsql::TableDescription>& tables) override {
        if (!fs::exists(mPath)) {
            sqlite::CreateAccount(mPath, tables);
            return;
        }
        sqlite::Database database(mPath, kTimeout);
        database.Run("begin immediate");
        for (const auto& table : tables) {
            for (const auto& statement : sqlite::CreateStatements(table)) {
                database.Run(statement.c_str());
            }
        }
        database.Run("commit");
    }

    void DropTable(const std::string& table) override {
        sqlite::Database(mPath, kTimeout).Run(("drop table \"" + table + '"').c_str());
    }

private:
    std::string mPath;
};

class OwnFolder {
public:
    OwnFolder() {
        static std::atomic<int> next{0};
        const std::string prefix = "kelvane_test_" + std::to_string(getpid()) + '_';
        do {
            mPath = fs::temp_directory_path() / (prefix + std::to_string(next++));
        } while (!fs::create_directory(mPath));
    }
    ~OwnFolder() {
        std::error_code ignored;
        fs::remove_all(mPath, ignored);
    }
    OwnFolder(const OwnFolder&) = delete;
    OwnFolder& operator=(const OwnFolder&) = delete;

    fs::path mPath;
};

class OwnFilePlace : private OwnFolder, public FilePlace {
public:
    OwnFilePlace() : FilePlace((OwnFolder::mPath / "account.kva").string()) {}
};

}  // namespace

std::unique_ptr<TestPlace> MakeFilePlace() {
    return std::make_unique<OwnFilePlace>();
}

std::unique_ptr<TestPlace> FindFilePlace(const std::string& path) {
    return std::make_unique<FilePlace>(path);
}

}  // namespace kelvane::support
