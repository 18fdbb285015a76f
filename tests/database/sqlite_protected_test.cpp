// Accounts that cannot be written, for who only wants to read them. Nobody may write to them here,
// which stops an administrator's tests as well.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>

#include "adapters/sqlite/account_copy.h"
#include "tests/database/failure_of.h"
#include "tests/database/sqlite_account.h"

namespace kelvane::database_test {
namespace {

namespace fs = std::filesystem;
using platform::StatementText;
using sqlite::CopyOfProtected;

constexpr int kTimeout = 50;

class SqliteProtected : public testing::Test {
protected:
    SqliteProtected() {
        fs::create_directory(mFolder);
        CreateSqliteAccount(mPath);
        const auto connection = Connect();
        Insert(*connection);
        connection->Close();
    }
    ~SqliteProtected() override { fs::permissions(mFolder, fs::perms::owner_all); }

    std::shared_ptr<platform::Connection> Connect() const {
        return ConnectToSqlite(mPath, kTimeout);
    }
    static void Insert(platform::Connection& connection) {
        connection.Execute(StatementText("insert into Probe(id) select count(*) from Probe"));
    }

    static void Protect(const fs::path& place) {
        constexpr fs::perms kWriters =
            fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
        fs::permissions(place, kWriters, fs::perm_options::remove);
    }

    // The account and what lies beside it, with the time of the last change.
    std::map<std::string, fs::file_time_type> Files() const {
        std::map<std::string, fs::file_time_type> files{{"", fs::last_write_time(mFolder)}};
        for (const auto& file : fs::directory_iterator(mFolder)) {
            files[file.path().filename().string()] = file.last_write_time();
        }
        return files;
    }

    // How many rows who reads the account finds, while nothing changes in its folder.
    long CountRows(const std::string& path) const {
        const auto before = Files();
        const auto copy = CopyOfProtected(path);
        if (!copy) return -1;
        const auto connection = ConnectToSqlite(copy->Path(), kTimeout);
        const long rows =
            connection->OpenRecordSet(StatementText("select id from Probe"))->RecordCount();
        Insert(*connection);
        connection->Close();
        EXPECT_EQ(Files(), before);
        return rows;
    }

    ScratchFolder mScratch;
    std::string mFolder = mScratch.Path("archive");
    std::string mPath = mFolder + "/账套 1.kva";
};

TEST_F(SqliteProtected, AreReadWhateverProtectsThem) {
    Protect(mPath);
    EXPECT_EQ(CountRows(mPath), 1);
    Protect(mFolder);
    EXPECT_EQ(CountRows(mPath), 1);
    fs::permissions(mPath, fs::perms::owner_write, fs::perm_options::add);
    EXPECT_EQ(CountRows(mPath), 1);
}

TEST_F(SqliteProtected, AreReadThroughALinkFromAFolderThatCanBeWritten) {
    const std::string link = mScratch.Path("link.kva");
    fs::create_symlink(mPath, link);
    EXPECT_EQ(CopyOfProtected(link), nullptr);
    Protect(mFolder);
    EXPECT_EQ(CountRows(link), 1);
}

TEST_F(SqliteProtected, AreNotCopiedWhenTheyCanBeWritten) {
    EXPECT_EQ(CopyOfProtected(mPath), nullptr);
}

TEST_F(SqliteProtected, LeaveNoCopy) {
    Protect(mPath);
    auto copy = CopyOfProtected(mPath);
    const std::string path = copy->Path();
    EXPECT_EQ(copy->AboutAccount("a " + path + ", b " + path), "a " + mPath + ", b " + mPath);
    EXPECT_TRUE(fs::exists(path));
    copy.reset();
    EXPECT_FALSE(fs::exists(fs::path(path).parent_path()));
}

// What was committed is in the log alone, as long as the account is open and when its program dies.
TEST_F(SqliteProtected, AreReadWithTheirLog) {
    const auto open = Connect();
    Insert(*open);
    ASSERT_GT(fs::file_size(mPath + "-wal"), 0U);
    Protect(mFolder);
    EXPECT_EQ(CountRows(mPath), 2);
}

TEST_F(SqliteProtected, ShowThatSomebodyChangesThem) {
    const sqlite::FileStates before(mPath);
    EXPECT_TRUE(before.AreStill());
    const auto open = Connect();
    Insert(*open);
    EXPECT_FALSE(before.AreStill());
    open->Close();
    EXPECT_FALSE(before.AreStill());
    EXPECT_TRUE(sqlite::FileStates(mPath).AreStill());
}

TEST_F(SqliteProtected, AreRefusedWhenTheyAreNoAccount) {
    fs::resize_file(mPath, fs::file_size(mPath) / 2);
    Protect(mPath);
    EXPECT_EQ(TextOfError([&] { CopyOfProtected(mPath); }),
              "账套文件 " + mPath + " 已损坏：文件不完整");
    EXPECT_EQ(TextOfError([&] { CopyOfProtected(mPath + "x"); }), "账套文件 " + mPath + "x 不存在");
}

}  // namespace
}  // namespace kelvane::database_test
