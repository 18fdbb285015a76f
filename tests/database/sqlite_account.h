// A SQLite account file in a folder of its own, for the tests that look at the file itself.
#pragma once

#include <memory>
#include <string>

#include "platform/database.h"

namespace kelvane::database_test {

// A folder that is removed with everything in it.
class ScratchFolder {
public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    std::string Path(const std::string& name) const { return mPath + '/' + name; }

private:
    std::string mPath;
};

// Has the tables of support::ProbingTables().
void CreateSqliteAccount(const std::string& path);
std::shared_ptr<platform::Connection> ConnectToSqlite(const std::string& path, int timeout);

}  // namespace kelvane::database_test
