#include <cerrno>
#include <cstdio>
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

// Makes the empty file, so that of two programs only one creates the account.
void Reserve(const std::string& path) {
    std::FILE* file = std::fopen(path.c_str(), "wx");
    if (file == nullptr) {
        if (errno == EEXIST) throw AccountError(path, "已经存在");
        throw AccountError(path, std::string("不能建立（") + std::strerror(errno) + "）");
    }
    std::fclose(file);
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
