#include "adapters/sqlite/companions.h"

#include <sqlite3.h>

#include <filesystem>

#include "adapters/sqlite/failures.h"
#include "platform/native_path.h"

namespace kelvane::sqlite {

namespace {

namespace fs = std::filesystem;

bool HasContent(const std::string& path) {
    std::error_code failure;
    const auto size = fs::file_size(platform::PathOf(path), failure);
    return !failure && size > 0;
}

// Asked of a handle that may not write, the engine says so instead of undoing anything.
bool WaitsToBeUndone(const std::string& path) {
    sqlite3* handle = nullptr;
    int code = sqlite3_open_v2(path.c_str(), &handle, SQLITE_OPEN_READONLY, nullptr);
    if (code == SQLITE_OK) {
        sqlite3_extended_result_codes(handle, 1);
        code = sqlite3_exec(handle, "pragma schema_version", nullptr, nullptr, nullptr);
    }
    sqlite3_close(handle);
    return code == SQLITE_READONLY_ROLLBACK;
}

}  // namespace

std::string RealPath(const std::string& path) {
    std::error_code failure;
    const fs::path place = platform::PathOf(path);
    if (!fs::is_symlink(fs::symlink_status(place, failure))) return path;
    const fs::path real = fs::canonical(place, failure);
    return failure ? path : platform::Utf8Of(real);
}

void RequirePlainCompanions(const std::string& path) {
    for (const char* ending : kCompanionEndings) {
        const std::string companion = path + ending;
        std::error_code failure;
        const fs::file_status status = fs::symlink_status(platform::PathOf(companion), failure);
        if (!fs::exists(status) || fs::is_regular_file(status)) continue;
        throw AccountError(path, "旁边的 " + companion + " 不是普通文件，请先移走它");
    }
}

bool HasUnfinishedChanges(const std::string& path) {
    return HasContent(path + "-journal") && WaitsToBeUndone(path);
}

bool HasLog(const std::string& path) {
    return HasContent(path + "-wal");
}

}  // namespace kelvane::sqlite
