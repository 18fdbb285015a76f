// SafeFile: a file that is written beside its place and takes the place when it is complete and on
// the disk. Whatever happens before leaves what was there. What a killed program left beside it is
// removed when the next file is written to that folder.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

#include "adapters/output/files/disk.h"

namespace kelvane::output {

// A file could not be written; says which and why.
class FileFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

class SafeFile {
public:
    // `path` is UTF-8; a symbolic link is followed. Everything here throws FileFailure. `disk`
    // outlives the file.
    explicit SafeFile(const std::string& path, Disk& disk = SystemDisk());
    // Removes what was written, unless Finish() succeeded.
    ~SafeFile();
    SafeFile(const SafeFile&) = delete;
    SafeFile& operator=(const SafeFile&) = delete;

    // The file that is being written (UTF-8), for a library that opens it itself.
    const std::string& Draft() const { return mDraft; }

    void Write(std::string_view bytes);

    // Puts the complete file in its place. When this throws, what was there is still there. That
    // the folder could not be synced is no failure: the new file is there.
    void Finish();

    // Throws FileFailure with `reason` for this file.
    [[noreturn]] void Fail(const std::string& reason) const;

private:
    template <typename Work>
    void Guard(const Work& work) const;
    void Flush();
    void Settle() noexcept;
    void RemoveLeftDrafts();

    std::string mName;
    std::filesystem::path mPlace;
    std::string mDraft;
    Disk& mDisk;
    int mFile = -1;
    std::string mBuffer;
};

}  // namespace kelvane::output
