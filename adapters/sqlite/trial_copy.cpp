#include "adapters/sqlite/trial_copy.h"

#include <random>

#include "adapters/sqlite/failures.h"
#include "platform/native_path.h"

namespace kelvane::sqlite {

namespace {

namespace fs = std::filesystem;

// A new folder that is the user's alone.
fs::path MakeFolder() {
    std::random_device random;
    for (;;) {
        fs::path folder = fs::temp_directory_path() / ("kelvane-trial-" + std::to_string(random()));
        if (!fs::create_directory(folder)) continue;
        fs::permissions(folder, fs::perms::owner_all);
        return folder;
    }
}

}  // namespace

TrialCopy::TrialCopy(const std::string& account) : mAccount(account) {
    try {
        mFolder = MakeFolder();
        const fs::path copy = mFolder / "account";
        mPath = platform::Utf8Of(copy);
        fs::copy_file(platform::PathOf(account), copy);
        fs::copy_file(platform::PathOf(account + "-journal"), platform::PathOf(mPath + "-journal"));
    } catch (const fs::filesystem_error& failure) {
        std::error_code ignored;
        fs::remove_all(mFolder, ignored);
        throw AccountError(
            account, "旁边有没有完成的日志，不能复制出来检查（" + failure.code().message() + "）");
    }
}

TrialCopy::~TrialCopy() {
    std::error_code ignored;
    fs::remove_all(mFolder, ignored);
}

std::string TrialCopy::AboutAccount(std::string text) const {
    for (auto at = text.find(mPath); at != std::string::npos;
         at = text.find(mPath, at + mAccount.size())) {
        text.replace(at, mPath.size(), mAccount);
    }
    return text;
}

}  // namespace kelvane::sqlite
