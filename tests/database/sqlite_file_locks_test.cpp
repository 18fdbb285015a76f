// The locks by which other programs know that the account is in use: a file's locks belong to the
// process, and one careless close of the file drops them for all its connections. Without them the
// next other program to leave removes the log that ours still write.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "adapters/sqlite/connection.h"
#include "tests/database/sqlite_account.h"

namespace kelvane::database_test {
namespace {

// True when another process finds a lock on the file. Only fcntl tells, and only to another one.
bool OthersFindALock(const std::string& path) {
    const pid_t child = fork();
    if (child == 0) {
        const int file = open(path.c_str(), O_RDWR);
        struct flock wanted = {};
        wanted.l_type = F_WRLCK;
        wanted.l_whence = SEEK_SET;
        const bool locked =
            file >= 0 && fcntl(file, F_GETLK, &wanted) == 0 && wanted.l_type != F_UNLCK;
        _exit(locked ? 1 : 0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 1;
}

TEST(SqliteFileLocks, AreKeptWhileAnotherConnectionComesAndGoes) {
    const ScratchFolder folder;
    const std::string path = folder.Path("account.kva");
    CreateSqliteAccount(path);
    EXPECT_FALSE(OthersFindALock(path));

    const auto first = ConnectToSqlite(path, 50);
    first->Execute(platform::StatementText("delete from PM_ItemQC where iEleVid = 0"));
    EXPECT_TRUE(OthersFindALock(path));
    {
        const auto second = ConnectToSqlite(path, 50);
        EXPECT_TRUE(OthersFindALock(path));
    }
    EXPECT_TRUE(OthersFindALock(path));
}

}  // namespace
}  // namespace kelvane::database_test
