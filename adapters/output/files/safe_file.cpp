#include "adapters/output/files/safe_file.h"

#include <random>
#include <system_error>
#include <utility>

#include "platform/native_path.h"

namespace kelvane::output {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kBufferSize = 1U << 16U;

fs::path FolderOf(const fs::path& place) {
    return place.has_parent_path() ? place.parent_path() : fs::path(".");
}

constexpr std::string_view kDraftStart = ".kelvane-";
constexpr std::string_view kDraftEnd = ".tmp";

std::string DraftName() {
    std::random_device random;
    return std::string(kDraftStart) + std::to_string(random()) + std::string(kDraftEnd);
}

bool IsDraftName(std::string_view name) {
    if (!name.starts_with(kDraftStart) || !name.ends_with(kDraftEnd)) return false;
    if (name.size() <= kDraftStart.size() + kDraftEnd.size()) return false;
    name.remove_prefix(kDraftStart.size());
    name.remove_suffix(kDraftEnd.size());
    return name.find_first_not_of("0123456789") == std::string_view::npos;
}

}  // namespace

SafeFile::SafeFile(const std::string& path, Disk& disk)
    : mName(path), mPlace(platform::PathOf(path)), mDisk(disk) {
    mBuffer.reserve(kBufferSize);
    if (path.empty() || !mPlace.has_filename()) Fail("it has no file name");
    Guard([this] {
        if (fs::is_symlink(fs::symlink_status(mPlace))) mPlace = fs::weakly_canonical(mPlace);
        const fs::file_status status = fs::status(mPlace);
        if (fs::is_directory(status)) Fail("it is a folder");
        if (fs::exists(status) && !fs::is_regular_file(status)) Fail("it is no plain file");
        if (!fs::is_directory(FolderOf(mPlace))) Fail("there is no such folder");
        mDisk.CheckWritable(platform::Utf8Of(mPlace));
        RemoveLeftDrafts();
        const std::string draft = platform::Utf8Of(FolderOf(mPlace) / DraftName());
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
    if (!mDraft.empty()) fs::remove(platform::PathOf(mDraft), ignored);
}

void SafeFile::RemoveLeftDrafts() {
    std::error_code unreadable;
    for (fs::directory_iterator each(FolderOf(mPlace), unreadable), end; !unreadable && each != end;
         each.increment(unreadable)) {
        if (IsDraftName(platform::Utf8Of(each->path().filename()))) {
            mDisk.RemoveLeftBehind(platform::Utf8Of(each->path()));
        }
    }
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
        mDisk.CopyRights(mFile, platform::Utf8Of(mPlace));
        mDisk.Sync(mFile);
        // Closed last: until then nobody else takes it for a draft that was left behind.
        mDisk.Rename(mDraft, platform::Utf8Of(mPlace));
    });
    mDraft.clear();
    Settle();
}

// The new file stands in its place, and what it holds is on the disk: to say that it was not
// written would be false from here on, whatever else fails.
void SafeFile::Settle() noexcept {
    try {
        mDisk.Close(std::exchange(mFile, -1));
    } catch (const std::exception&) {
        // Everything was synced before.
        mFile = -1;
    }
    try {
        mDisk.SyncFolder(platform::Utf8Of(FolderOf(mPlace)));
    } catch (const std::exception&) {
        // A power cut may bring the old file back, whole.
        return;
    }
}

}  // namespace kelvane::output
