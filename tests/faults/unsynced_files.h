// The engine's files without waiting for the disk: a test that opens hundreds of accounts and does
// not cut the power would otherwise do little else.
#pragma once

#include <memory>

struct sqlite3_vfs;

namespace kelvane::faults {

// While it exists, what is opened is never synced.
class UnsyncedFiles {
public:
    UnsyncedFiles();
    ~UnsyncedFiles();
    UnsyncedFiles(const UnsyncedFiles&) = delete;
    UnsyncedFiles& operator=(const UnsyncedFiles&) = delete;

private:
    std::unique_ptr<sqlite3_vfs> mLayer;
};

}  // namespace kelvane::faults
