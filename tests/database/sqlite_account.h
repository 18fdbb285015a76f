// A SQLite account file in a folder of its own, for the tests that look at the file itself.
#pragma once

#include <memory>
#include <string>

#include "platform/database.h"
#include "tests/database/account_fixture.h"

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

void CreateSqliteAccount(const std::string& path, const std::vector<Table>& tables);
std::shared_ptr<platform::Connection> ConnectToSqlite(const std::string& path, int timeout);

}  // namespace kelvane::database_test
