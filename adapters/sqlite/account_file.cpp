#include "adapters/sqlite/account_file.h"

#include <sqlite3.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string_view>

#include "adapters/sqlite/companions.h"
#include "adapters/sqlite/failures.h"
#include "adapters/sqlite/schema.h"
#include "platform/native_path.h"

namespace kelvane::sqlite {

namespace {

namespace fs = std::filesystem;

// The fixed places of the file format's header.
constexpr std::size_t kHeaderSize = 100;
constexpr std::string_view kMagic("SQLite format 3\0", 16);
constexpr std::size_t kPageSizeAt = 16;
constexpr std::size_t kChangeCounterAt = 24;
constexpr std::size_t kPageCountAt = 28;
constexpr std::size_t kUserVersionAt = 60;
constexpr std::size_t kApplicationIdAt = 68;
constexpr std::size_t kVersionValidForAt = 92;

using HeaderBytes = std::array<char, kHeaderSize>;

// Reads the header through the engine's own file layer; false when the file cannot be opened. A
// program that opens and closes the file by itself thereby drops the locks of all its connections
// to it, and the next other program to leave removes the log that they still write.
bool ReadHeader(const std::string& path, HeaderBytes& bytes) {
    sqlite3_vfs* layer = sqlite3_vfs_find(nullptr);
    const std::unique_ptr<const char, void (*)(const char*)> name(
        sqlite3_create_filename(fs::absolute(platform::PathOf(path)).string().c_str(), "", "", 0,
                                nullptr),
        sqlite3_free_filename);
    const std::unique_ptr<void, void (*)(void*)> memory(sqlite3_malloc(layer->szOsFile),
                                                        sqlite3_free);
    if (!name || !memory) throw std::bad_alloc();
    auto* file = static_cast<sqlite3_file*>(memory.get());
    file->pMethods = nullptr;
    const int flags = SQLITE_OPEN_READONLY | SQLITE_OPEN_MAIN_DB;
    bool read = layer->xOpen(layer, name.get(), file, flags, nullptr) == SQLITE_OK;
    if (read) {
        const int outcome =
            file->pMethods->xRead(file, bytes.data(), static_cast<int>(bytes.size()), 0);
        read = outcome == SQLITE_OK || outcome == SQLITE_IOERR_SHORT_READ;
    }
    if (file->pMethods != nullptr) file->pMethods->xClose(file);
    return read;
}

class Header {
public:
    explicit Header(const HeaderBytes& bytes) : mBytes(bytes) {}

    bool IsDatabase() const { return std::string_view(mBytes.data(), kMagic.size()) == kMagic; }
    std::uint32_t Number(std::size_t at, std::size_t length = 4) const {
        std::uint32_t number = 0;
        for (std::size_t i = 0; i < length; ++i) {
            number = (number << 8) | static_cast<unsigned char>(mBytes[at + i]);
        }
        return number;
    }
    // What the file must at least measure; 0 when the header does not tell.
    std::uintmax_t LeastSize() const {
        constexpr std::uint32_t kMaxPageSize = 65536;
        const std::uint32_t pageSize =
            Number(kPageSizeAt, 2) == 1 ? kMaxPageSize : Number(kPageSizeAt, 2);
        const bool tells = Number(kChangeCounterAt) == Number(kVersionValidForAt);
        return tells ? std::uintmax_t{pageSize} * Number(kPageCountAt) : 0;
    }

private:
    HeaderBytes mBytes;
};

constexpr const char* kNoAccount = "不是账套文件";

}  // namespace

void RequireLayout(const std::string& path, std::int64_t applicationId, std::int64_t version) {
    if (applicationId != kApplicationId) throw AccountError(path, kNoAccount);
    if (version > kLayoutVersion) throw AccountError(path, "是由较新版本的程序建立的");
}

void RequireAccountFile(const std::string& path) {
    std::error_code failure;
    const fs::path place = platform::PathOf(path);
    const fs::file_status status = fs::status(place, failure);
    if (!fs::exists(status)) throw AccountError(path, "不存在");
    if (!fs::is_regular_file(status)) throw AccountError(path, kNoAccount);
    RequirePlainCompanions(path);
    HeaderBytes bytes{};
    if (!ReadHeader(path, bytes)) throw AccountError(path, "无法读取");
    const Header header(bytes);
    if (!header.IsDatabase()) throw AccountError(path, kNoAccount);
    RequireLayout(path, header.Number(kApplicationIdAt), header.Number(kUserVersionAt));
    // What is missing from the file may still lie in its log, after a crash.
    if (!HasLog(path) && fs::file_size(place, failure) < header.LeastSize()) {
        throw AccountError(path, "已损坏：文件不完整");
    }
}

bool IsWriteProtected(const std::string& path) {
    constexpr fs::perms kWriters =
        fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    std::error_code failure;
    const fs::perms perms = fs::status(platform::PathOf(path), failure).permissions();
    if (failure || (perms & kWriters) == fs::perms::none) return true;
    sqlite3_vfs* layer = sqlite3_vfs_find(nullptr);
    int allowed = 0;
    return layer->xAccess(layer, path.c_str(), SQLITE_ACCESS_READWRITE, &allowed) != SQLITE_OK ||
           allowed == 0;
}

}  // namespace kelvane::sqlite
