#include "adapters/sqlite/account_file.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string_view>

#include "adapters/sqlite/failures.h"
#include "adapters/sqlite/schema.h"

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

class Header {
public:
    explicit Header(std::istream& file) {
        file.read(mBytes.data(), kHeaderSize);
        mSize = static_cast<std::size_t>(file.gcount());
    }

    bool IsDatabase() const {
        return mSize == kHeaderSize && std::string_view(mBytes.data(), kMagic.size()) == kMagic;
    }
    std::uint32_t Number(std::size_t at, std::size_t length = 4) const {
        std::uint32_t number = 0;
        for (std::size_t i = 0; i < length; ++i) {
            number = (number << 8) | static_cast<unsigned char>(mBytes[at + i]);
        }
        return number;
    }
    // What the file must at least measure; 0 when the header does not tell.
    std::uintmax_t LeastSize() const {
        constexpr std::uint32_t kLargestPage = 65536;
        const std::uint32_t pageSize =
            Number(kPageSizeAt, 2) == 1 ? kLargestPage : Number(kPageSizeAt, 2);
        const bool tells = Number(kChangeCounterAt) == Number(kVersionValidForAt);
        return tells ? std::uintmax_t{pageSize} * Number(kPageCountAt) : 0;
    }

private:
    std::array<char, kHeaderSize> mBytes{};
    std::size_t mSize = 0;
};

bool IsWriteProtected(const std::string& path) {
    constexpr fs::perms kWriters =
        fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    std::error_code failure;
    const fs::perms perms = fs::status(path, failure).permissions();
    if (failure || (perms & kWriters) == fs::perms::none) return true;
    return !std::fstream(path, std::ios::in | std::ios::out | std::ios::binary);
}

}  // namespace

void RequireAccountFile(const std::string& path) {
    std::error_code failure;
    const fs::file_status status = fs::status(path, failure);
    if (!fs::exists(status)) throw AccountError(path, "不存在");
    if (!fs::is_regular_file(status)) throw AccountError(path, "不是账套文件");
    std::ifstream file(path, std::ios::binary);
    if (!file) throw AccountError(path, "无法读取");
    const Header header(file);
    if (!header.IsDatabase() ||
        header.Number(kApplicationIdAt) != static_cast<std::uint32_t>(kApplicationId)) {
        throw AccountError(path, "不是账套文件");
    }
    if (header.Number(kUserVersionAt) > static_cast<std::uint32_t>(kLayoutVersion)) {
        throw AccountError(path, "是由较新版本的程序建立的");
    }
    // What is missing from the file may still lie in its log, after a crash.
    const bool hasLog = fs::file_size(path + "-wal", failure) > 0 && !failure;
    if (!hasLog && fs::file_size(path, failure) < header.LeastSize()) {
        throw AccountError(path, "已损坏：文件不完整");
    }
    if (IsWriteProtected(path)) throw AccountError(path, "是只读的，不能写入");
}

}  // namespace kelvane::sqlite
