#include "adapters/tables/byte_source.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <utility>

#include "adapters/tables/refusal.h"
#include "platform/native_path.h"

namespace kelvane::tables {

namespace {

class FileBytes : public ByteSource {
public:
    explicit FileBytes(const std::filesystem::path& path) : mFile(path, std::ios::binary) {
        mFile.seekg(0, std::ios::end);
        const std::streamoff size = mFile.tellg();
        if (!mFile || size < 0) throw Refusal(kUnreadable);
        mSize = static_cast<std::uint64_t>(size);
    }

    std::uint64_t Size() const override { return mSize; }

    std::size_t Read(std::uint64_t offset, char* to, std::size_t count) override {
        if (offset >= mSize) return 0;
        const auto wanted = std::min<std::uint64_t>(count, mSize - offset);
        // To go to where one is would throw away what was read ahead.
        if (offset != mNext) mFile.seekg(static_cast<std::streamoff>(offset));
        mFile.read(to, static_cast<std::streamsize>(wanted));
        if (!mFile) throw Refusal(kUnreadable);
        mNext = offset + wanted;
        return static_cast<std::size_t>(wanted);
    }

private:
    static constexpr const char* kUnreadable = "无法读取";

    std::ifstream mFile;
    std::uint64_t mSize = 0;
    std::uint64_t mNext = UINT64_MAX;
};

class TextBytes : public ByteSource {
public:
    explicit TextBytes(std::string text) : mText(std::move(text)) {}

    std::uint64_t Size() const override { return mText.size(); }

    std::size_t Read(std::uint64_t offset, char* to, std::size_t count) override {
        if (offset >= mText.size()) return 0;
        return mText.copy(to, count, static_cast<std::size_t>(offset));
    }

private:
    std::string mText;
};

}  // namespace

std::unique_ptr<ByteSource> OpenFileBytes(const std::string& path) {
    const std::filesystem::path place = platform::PathOf(platform::NativePath(path));
    std::error_code failure;
    const std::filesystem::file_status status = std::filesystem::status(place, failure);
    if (!std::filesystem::exists(status)) throw Refusal("不存在");
    // Anything else may never end.
    if (!std::filesystem::is_regular_file(status)) throw Refusal("不是文件");
    return std::make_unique<FileBytes>(place);
}

std::unique_ptr<ByteSource> BytesOfText(std::string text) {
    return std::make_unique<TextBytes>(std::move(text));
}

std::string FirstBytes(ByteSource& source, std::size_t count) {
    std::string bytes(count, '\0');
    bytes.resize(source.Read(0, bytes.data(), count));
    return bytes;
}

}  // namespace kelvane::tables
