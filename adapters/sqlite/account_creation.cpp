#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <string>

#include "adapters/sqlite/companions.h"
#include "adapters/sqlite/database.h"
#include "adapters/sqlite/failures.h"
#include "adapters/sqlite/schema.h"

namespace kelvane::sqlite {

namespace {

constexpr int kTimeout = 5000;

// Makes the empty file, so that of two programs only one creates the account. It is the owner's
// alone, and the engine gives the files beside it the same rights.
void Reserve(const std::string& path) {
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL, S_IRUSR | S_IWUSR);
    if (file < 0) {
        if (errno == EEXIST) throw AccountError(path, "已经存在");
        throw AccountError(path, std::string("不能建立（") + std::strerror(errno) + "）");
    }
    close(file);
}

void Fill(const std::string& path, const std::vector<TableDescription>& tables) {
    Database database(path, kTimeout);
    database.Run("begin immediate");
    for (const TableDescription& table : tables) {
        for (const std::string& statement : CreateStatements(table)) {
            database.Run(statement.c_str());
        }
    }
    database.Run(("pragma application_id = " + std::to_string(kApplicationId)).c_str());
    database.Run(("pragma user_version = " + std::to_string(kLayoutVersion)).c_str());
    database.Run("commit");
    database.Run("pragma journal_mode = wal");
}

}  // namespace

void CreateAccount(const std::string& path, const std::vector<TableDescription>& tables) {
    Reserve(path);
    try {
        Fill(path, tables);
    } catch (...) {
        std::error_code ignored;
        std::filesystem::remove(path, ignored);
        for (const char* ending : kCompanionEndings)
            std::filesystem::remove(path + ending, ignored);
        throw;
    }
}

}  // namespace kelvane::sqlite
