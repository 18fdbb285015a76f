#include "adapters/sqlite/account_copy.h"

#include <sqlite3.h>

#include <array>
#include <random>

#include "adapters/sqlite/account_file.h"
#include "adapters/sqlite/companions.h"
#include "adapters/sqlite/failures.h"
#include "platform/native_path.h"

namespace kelvane::sqlite {

namespace {

namespace fs = std::filesystem;

constexpr std::array<const char*, 3> kCopied = {"", "-journal", "-wal"};

// A new folder that is the user's alone.
fs::path MakeFolder() {
    std::random_device random;
    for (;;) {
        fs::path folder = fs::temp_directory_path() / ("kelvane-copy-" + std::to_string(random()));
        if (!fs::create_directory(folder)) continue;
        fs::permissions(folder, fs::perms::owner_all);
        return folder;
    }
}

// A copy can be written whoever may write the original.
void Copy(const std::string& from, const std::string& to) {
    fs::copy_file(platform::PathOf(from), platform::PathOf(to));
    fs::permissions(platform::PathOf(to), fs::perms::owner_read | fs::perms::owner_write);
}

}  // namespace

std::vector<FileStates::File> FileStates::Look() const {
    std::vector<File> files;
    for (const char* ending : kCopied) {
        const fs::path file = platform::PathOf(mAccount + ending);
        std::error_code missing;
        files.push_back({fs::file_size(file, missing), fs::last_write_time(file, missing)});
    }
    return files;
}

AccountCopy::AccountCopy(const std::string& account) : mAccount(account) {
    const FileStates before(account);
    try {
        mFolder = MakeFolder();
        mPath = platform::Utf8Of(mFolder / "account");
        for (const char* ending : kCopied) {
            if (!fs::exists(platform::PathOf(account + ending))) continue;
            Copy(account + ending, mPath + ending);
        }
    } catch (const fs::filesystem_error& failure) {
        std::error_code ignored;
        fs::remove_all(mFolder, ignored);
        throw AccountError(account, "不能复制到临时文件夹（" + failure.code().message() + "）");
    }
    if (before.AreStill()) return;
    std::error_code ignored;
    fs::remove_all(mFolder, ignored);
    Throw({SQLITE_BUSY, "the file was changed while it was copied", account, ""});
}

AccountCopy::~AccountCopy() {
    std::error_code ignored;
    fs::remove_all(mFolder, ignored);
}

std::string AccountCopy::AboutAccount(std::string text) const {
    for (auto at = text.find(mPath); at != std::string::npos;
         at = text.find(mPath, at + mAccount.size())) {
        text.replace(at, mPath.size(), mAccount);
    }
    return text;
}

std::shared_ptr<const AccountCopy> CopyOfProtected(const std::string& path) {
    const std::string account = RealPath(path);
    RequireAccountFile(account);
    const fs::path folder = platform::PathOf(account).parent_path();
    if (!IsWriteProtected(account) &&
        !IsWriteProtected(folder.empty() ? "." : platform::Utf8Of(folder)) &&
        !HasUnfinishedChanges(account)) {
        return nullptr;
    }
    return std::make_shared<AccountCopy>(account);
}

}  // namespace kelvane::sqlite
