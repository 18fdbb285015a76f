// A copy of an account with its journal and its log, in a folder of its own that goes with the
// object. It serves to open an account that is not to be changed: one whose last writer died in the
// middle of its changes, of which only their undoing shows whether it can be used, and one that
// cannot be written.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace kelvane::sqlite {

// The sizes and times of an account's files, by which a change shows.
class FileStates {
public:
    explicit FileStates(std::string account) : mAccount(std::move(account)), mFiles(Look()) {}

    bool AreStill() const { return Look() == mFiles; }

private:
    struct File {
        std::uintmax_t size = 0;
        std::filesystem::file_time_type changed;
        bool operator==(const File&) const = default;
    };
    std::vector<File> Look() const;

    std::string mAccount;
    std::vector<File> mFiles;
};

class AccountCopy {
public:
    // Throws DatabaseError when `account` cannot be copied, DatabaseBusy when somebody changes it
    // meanwhile.
    explicit AccountCopy(const std::string& account);
    ~AccountCopy();
    AccountCopy(const AccountCopy&) = delete;
    AccountCopy& operator=(const AccountCopy&) = delete;

    const std::string& Path() const { return mPath; }

    // `text` with the account's name in the place of the copy's.
    std::string AboutAccount(std::string text) const;

private:
    std::string mAccount;
    std::filesystem::path mFolder;
    std::string mPath;
};

// A copy of the account `path` when it or the folder that takes its companions cannot be written,
// or when its last writer died in the middle of its changes, which opening it would undo in the
// file; null otherwise. Throws DatabaseError for a file that is missing, no account or incomplete.
std::shared_ptr<const AccountCopy> CopyOfProtected(const std::string& path);

}  // namespace kelvane::sqlite
