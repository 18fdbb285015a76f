// Stands between the engine and the system's files while it exists, and makes calls fail as a full
// or broken disk does.
#pragma once

#include <memory>

struct sqlite3_vfs;

namespace kelvane::database_test {

class FailingFiles {
public:
    FailingFiles();
    ~FailingFiles();
    FailingFiles(const FailingFiles&) = delete;
    FailingFiles& operator=(const FailingFiles&) = delete;

    // After `allowed` more writes there is no room: every further one fails.
    void FillDisk(int allowed);
    // The next `allowed` files are brought to the disk, the one behind them is not.
    void BreakSync(int allowed);
    // From here on everything is done. Returns how many calls were refused.
    int Heal();

private:
    std::unique_ptr<sqlite3_vfs> mLayer;
};

}  // namespace kelvane::database_test
