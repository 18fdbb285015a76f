// Who may read and write the files that the program makes.
#include <grp.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>

#include "adapters/output/files/safe_file.h"
#include "adapters/sqlite/schema.h"
#include "host/account/account_place.h"
#include "host/account/new_file.h"
#include "host/creation/account_creation.h"
#include "host/surroundings/diagnostics_log.h"
#include "host/surroundings/private_files.h"
#include "tests/unit/host/plain_sqlite.h"
#include "tests/unit/host/program.h"
#include "tests/unit/host/temporary_folder.h"

namespace kelvane::host_test {
namespace {

namespace fs = std::filesystem;

using platform::StatementText;

constexpr mode_t kOwnersAlone = 0600;
constexpr mode_t kGroups = 0660;

// While it lives, a file that is made gets all the rights that its maker asks for.
class NoMask {
public:
    NoMask() : mBefore(umask(0)) {}
    ~NoMask() { umask(mBefore); }
    NoMask(const NoMask&) = delete;
    NoMask& operator=(const NoMask&) = delete;

private:
    mode_t mBefore;
};

mode_t ModeOf(const fs::path& path) {
    struct stat found {};
    return stat(path.c_str(), &found) == 0 ? found.st_mode & ALLPERMS : ALLPERMS;
}

class FileRightsTest : public testing::Test {
protected:
    void MakeAccount() const { host::CreateAccountFile(mAccount, {}); }

    NoMask mNoMask;
    TemporaryFolder mFolder;
    fs::path mAccount = mFolder / "a.kelvane";
};

// Gives the account's unit a name.
void Rename(const fs::path& account, const std::string& name) {
    const auto connection = host::OpenAccount(account.string());
    connection->Execute(StatementText("update Host_Unit set cUnitName = ").Quoted(name));
    connection->Close();
}

TEST_F(FileRightsTest, ANewAccountIsItsOwnersAlone) {
    MakeAccount();
    EXPECT_EQ(ModeOf(mAccount), kOwnersAlone);
    const auto connection = host::OpenAccount(mAccount.string());
    connection->Execute(StatementText("update Host_Unit set cUnitName = 'a'"));
    EXPECT_EQ(ModeOf(mAccount.string() + "-wal"), kOwnersAlone);
    EXPECT_EQ(ModeOf(mAccount.string() + "-shm"), kOwnersAlone);
    connection->Close();
    EXPECT_EQ(ModeOf(mAccount), kOwnersAlone);
}

TEST_F(FileRightsTest, AnAccountIsNobodyElsesWhileItIsMade) {
    host::NewFile file(mAccount, host::NewFile::Existing::Keep);
    sqlite::CreateAccount(file.Draft().string(), {});
    EXPECT_EQ(ModeOf(file.Draft()), kOwnersAlone);
}

TEST_F(FileRightsTest, OpeningAnAccountLeavesItsRightsAndGivesThemToTheFilesBesideIt) {
    MakeAccount();
    chmod(mAccount.c_str(), kGroups);
    umask(077);
    const auto connection = host::OpenAccount(mAccount.string());
    connection->Execute(StatementText("update Host_Unit set cUnitName = 'a'"));
    EXPECT_EQ(ModeOf(mAccount.string() + "-wal"), kGroups);
    EXPECT_EQ(ModeOf(mAccount.string() + "-shm"), kGroups);
    connection->Close();
    EXPECT_EQ(ModeOf(mAccount), kGroups);
}

// A process that does `work`; an administrator's tests make it the member `user` of `group`.
class Member {
public:
    Member(uid_t user, gid_t group, const std::function<void()>& work) : mProcess(fork()) {
        if (mProcess != 0) return;
        umask(077);
        const bool switched =
            geteuid() != 0 || (setgroups(1, &group) == 0 && setgid(user) == 0 && setuid(user) == 0);
        try {
            if (switched) work();
            _exit(switched ? 0 : 1);
        } catch (const std::exception& failed) {
            _exit(2);
        }
    }

    // Waits for its end; whether it could do everything.
    bool Succeeds() const {
        int status = 0;
        waitpid(mProcess, &status, 0);
        return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }

private:
    pid_t mProcess;
};

// What one process waits for until another one has come so far.
class Signal {
public:
    Signal() {
        if (pipe(mEnds) != 0) throw std::runtime_error("pipe");
    }
    ~Signal() {
        close(mEnds[0]);
        close(mEnds[1]);
    }
    Signal(const Signal&) = delete;
    Signal& operator=(const Signal&) = delete;

    void Give() const {
        if (write(mEnds[1], "x", 1) != 1) throw std::runtime_error("write");
    }
    void Await() const {
        pollfd waited{mEnds[0], POLLIN, 0};
        constexpr int kHangs = 60'000;
        char read1 = 0;
        if (poll(&waited, 1, kHangs) != 1 || read(mEnds[0], &read1, 1) != 1) {
            throw std::runtime_error("nothing came");
        }
    }

private:
    int mEnds[2];
};

TEST_F(FileRightsTest, AGroupSharesAnAccountAsTheDocumentSays) {
    constexpr uid_t kFirst = 60'001;
    constexpr uid_t kSecond = 60'002;
    const gid_t group = geteuid() == 0 ? 60'003 : getegid();
    const fs::path folder = mFolder / "books";
    fs::create_directory(folder);
    fs::permissions(mFolder.Path(), fs::perms::all);
    ASSERT_EQ(chown(folder.c_str(), geteuid(), group), 0);
    ASSERT_EQ(chmod(folder.c_str(), 02770), 0);
    const fs::path account = folder / "a.kelvane";
    const Signal opened;
    const Signal written;
    const Member first(kFirst, group, [&] {
        host::CreateAccountFile(account, {});
        if (chmod(account.c_str(), kGroups) != 0) throw std::runtime_error("chmod");
        const auto connection = host::OpenAccount(account.string());
        connection->Execute(StatementText("update Host_Unit set cUnitName = 'first'"));
        opened.Give();
        written.Await();
        connection->Close();
    });
    // While the first one has it open, and again when nobody has.
    EXPECT_NO_THROW(opened.Await());
    EXPECT_TRUE(Member(kSecond, group, [&] { Rename(account, "second"); }).Succeeds());
    written.Give();
    EXPECT_TRUE(first.Succeeds());
    EXPECT_EQ(PlainSqlite(account).One("select cUnitName from Host_Unit"), "second");
    EXPECT_TRUE(Member(kSecond, group, [&] { Rename(account, "again"); }).Succeeds());
    EXPECT_EQ(PlainSqlite(account).One("select cUnitName from Host_Unit"), "again");
    EXPECT_EQ(ModeOf(account), kGroups);
}

TEST_F(FileRightsTest, AnExportedFileIsItsOwnersAlone) {
    const fs::path path = mFolder / "list.csv";
    output::SafeFile file(path.string());
    EXPECT_EQ(ModeOf(file.Draft()), kOwnersAlone);
    file.Finish();
    EXPECT_EQ(ModeOf(path), kOwnersAlone);
}

TEST_F(FileRightsTest, WhateverTheProgramExportsIsItsOwnersAlone) {
    ASSERT_EQ(RunProgram("init --sample --entries 2 " + ShellQuoted(mAccount.string())).status, 0);
    for (const char* name : {"list.csv", "list.xlsx", "list.pdf", "list.xml"}) {
        const auto result = RunProgram("export " + ShellQuoted(mAccount.string()) + " --to " +
                                           ShellQuoted((mFolder / name).string()),
                                       {}, "HOME=" + ShellQuoted(mFolder.Path().string()));
        EXPECT_EQ(result.status, 0) << result.errors;
        EXPECT_EQ(ModeOf(mFolder / name), kOwnersAlone) << name;
    }
}

TEST_F(FileRightsTest, AFileThatIsWrittenOverGivesItsRightsAndNoBorrowedIdentity) {
    const fs::path path = mFolder / "list.csv";
    for (const auto& [before, after] :
         {std::pair<mode_t, mode_t>{06755, 0755}, {01644, 0644}, {0660, 0660}, {04600, 0600}}) {
        WriteText(path, "old");
        ASSERT_EQ(chmod(path.c_str(), before), 0);
        ASSERT_EQ(ModeOf(path), before);
        output::SafeFile file(path.string());
        file.Finish();
        EXPECT_EQ(ModeOf(path), after);
        fs::remove(path);
    }
}

TEST_F(FileRightsTest, ALogIsItsOwnersAloneUnlessItWasThere) {
    host::DiagnosticsLog(mFolder / "new.log").Trapped("SaveRow", "text");
    EXPECT_EQ(ModeOf(mFolder / "new.log"), kOwnersAlone);
    EXPECT_TRUE(host::DiagnosticsLog(mFolder / "tried.log").IsWritable());
    EXPECT_EQ(ModeOf(mFolder / "tried.log"), kOwnersAlone);
    WriteText(mFolder / "old.log", "");
    ASSERT_EQ(chmod((mFolder / "old.log").c_str(), 0640), 0);
    host::DiagnosticsLog(mFolder / "old.log").Trapped("SaveRow", "text");
    EXPECT_EQ(ModeOf(mFolder / "old.log"), 0640U);
}

TEST_F(FileRightsTest, APrivateFolderIsMadeWithThoseAboveIt) {
    host::MakePrivateFolder(mFolder / "share/kelvane/printStyle/");
    for (const char* made : {"share", "share/kelvane", "share/kelvane/printStyle"}) {
        EXPECT_EQ(ModeOf(mFolder / made), 0700U) << made;
    }
    ASSERT_EQ(chmod((mFolder / "share").c_str(), 0755), 0);
    host::MakePrivateFolder(mFolder / "share/other");
    EXPECT_EQ(ModeOf(mFolder / "share"), 0755U);
}

}  // namespace
}  // namespace kelvane::host_test
