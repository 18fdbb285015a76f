// A file that is written beside its place and takes its name when it is complete, so that nobody
// ever finds half of it.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <vector>

namespace kelvane::host {

// A file cannot be put where it is wanted; says why and names it. Nothing was changed.
class FileRefused : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

class NewFile {
public:
    enum class Existing { Keep, Replace };

    // Throws FileRefused when `path` is no place for a file, when a file is there that is to be
    // kept, or when another program is using the one to be replaced. A symbolic link is followed.
    NewFile(const std::filesystem::path& path, Existing existing);

    // Removes what has been written, unless Finish() was called.
    ~NewFile();
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    // Where to write: a name in the same folder that no file has.
    const std::filesystem::path& Draft() const { return mDraft; }

    // Gives the complete and closed file its name. Throws FileRefused.
    void Finish();

private:
    void CheckPlace() const;

    std::filesystem::path mPath;
    std::filesystem::path mDraft;
    Existing mExisting;
};

// The files that the database keeps beside `account` while somebody has it open.
std::vector<std::filesystem::path> CompanionFiles(const std::filesystem::path& account);

}  // namespace kelvane::host
