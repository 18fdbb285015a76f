#include "adapters/output/safe_file.h"

#include <random>
#include <system_error>
#include <utility>

namespace kelvane::output {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kBufferSize = 1U << 16U;

fs::path FolderOf(const fs::path& place) {
    return place.has_parent_path() ? place.parent_path() : fs::path(".");
}

std::string RandomName() {
    std::random_device random;
    return ".kelvane-" + std::to_string(random()) + ".tmp";
}

}  // namespace

SafeFile::SafeFile(const std::string& path, Disk& disk) : mName(path), mPlace(path), mDisk(disk) {
    mBuffer.reserve(kBufferSize);
    if (path.empty() || !mPlace.has_filename()) Fail("it has no file name");
    Guard([this] {
        if (fs::is_symlink(fs::symlink_status(mPlace))) mPlace = fs::weakly_canonical(mPlace);
        const fs::file_status status = fs::status(mPlace);
        if (fs::is_directory(status)) Fail("it is a folder");
        if (fs::exists(status) && !fs::is_regular_file(status)) Fail("it is no plain file");
        if (!fs::is_directory(FolderOf(mPlace))) Fail("there is no such folder");
        mDisk.CheckWritable(mPlace.string());
        const std::string draft = (FolderOf(mPlace) / RandomName()).string();
        mFile = mDisk.Create(draft);
        mDraft = draft;
    });
}

SafeFile::~SafeFile() {
    try {
        if (mFile >= 0) mDisk.Close(mFile);
    } catch (const std::exception&) {
        // The draft is given up in any case.
        mFile = -1;
    }
    std::error_code ignored;
    if (!mDraft.empty()) fs::remove(mDraft, ignored);
}

template <typename Work>
void SafeFile::Guard(const Work& work) const {
    try {
        work();
    } catch (const std::system_error& refused) {
        Fail(refused.code().message());
    }
}

void SafeFile::Fail(const std::string& reason) const {
    throw FileFailure(mName + ": " + reason);
}

void SafeFile::Write(std::string_view bytes) {
    mBuffer += bytes;
    if (mBuffer.size() >= kBufferSize) Flush();
}

void SafeFile::Flush() {
    Guard([this] { mDisk.Write(mFile, mBuffer); });
    mBuffer.clear();
}

void SafeFile::Finish() {
    Flush();
    Guard([this] {
        mDisk.CopyRights(mFile, mPlace.string());
        mDisk.Sync(mFile);
        mDisk.Close(std::exchange(mFile, -1));
        mDisk.Rename(mDraft, mPlace.string());
        mDraft.clear();
        mDisk.SyncFolder(FolderOf(mPlace).string());
    });
}

}  // namespace kelvane::output
