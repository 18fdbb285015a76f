// A copy of an account with its journal, in a folder of its own that goes with the object. Whether
// an account whose last writer died in the middle of its changes can be used shows only after they
// were undone, and one that cannot be used is not to be changed.
#pragma once

#include <filesystem>
#include <string>

namespace kelvane::sqlite {

class TrialCopy {
public:
    // Throws DatabaseError when `account` cannot be copied.
    explicit TrialCopy(const std::string& account);
    ~TrialCopy();
    TrialCopy(const TrialCopy&) = delete;
    TrialCopy& operator=(const TrialCopy&) = delete;

    const std::string& Path() const { return mPath; }

    // `text` with the account's name in the place of the copy's.
    std::string AboutAccount(std::string text) const;

private:
    std::string mAccount;
    std::filesystem::path mFolder;
    std::string mPath;
};

}  // namespace kelvane::sqlite
