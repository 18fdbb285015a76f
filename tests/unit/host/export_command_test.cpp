// kelvane export, run as a user runs it.
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>

#include "tests/unit/host/plain_sqlite.h"
#include "tests/unit/host/program.h"
#include "tests/unit/host/temporary_folder.h"

namespace kelvane::host_test {
namespace {

namespace fs = std::filesystem;

constexpr const char* kWritten = "成功输出到文件。\n";
constexpr const char* kNotWritten = "输出到文件失败！\n";

class ExportCommandTest : public testing::Test {
protected:
    ExportCommandTest() {
        fs::create_directory(mPlace);
        EXPECT_EQ(RunProgram("init --sample " + ShellQuoted(mAccount.string())).status, 0);
    }

    // Writes the list, or what `more` asks for, to `name` in the files' folder.
    ProgramResult Export(const std::string& name, const std::string& more = {},
                         const std::string& with = {}) const {
        return RunProgram("export " + ShellQuoted(mAccount.string()) + " --to " +
                              ShellQuoted(PathOf(name)) + " " + more,
                          {}, "HOME=" + ShellQuoted(mFolder.Path().string()) + " " + with);
    }
    std::string PathOf(const std::string& name) const { return (mPlace / name).string(); }
    std::string Content(const std::string& name) const { return ReadText(PathOf(name)); }
    std::string Ask(const std::string& query) const { return PlainSqlite(mAccount).One(query); }
    std::size_t FileCount() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(mPlace), fs::directory_iterator()));
    }

    static void ExpectRefused(const ProgramResult& result, const std::string& errors) {
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(result.errors, errors);
    }

    TemporaryFolder mFolder;
    fs::path mAccount = mFolder / "a.kelvane";
    fs::path mPlace = mFolder / "files";
};

// An administrator may write everywhere, so the program runs as somebody else.
const std::string kAsSomebody =
    geteuid() == 0 ? "setpriv --reuid=65534 --regid=65534 --clear-groups" : "";

std::size_t LinesOf(const std::string& text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

TEST_F(ExportCommandTest, WritesTheListByTheFilesExtension) {
    for (const auto& [name, begins] :
         {std::pair{"list.csv", "\xEF\xBB\xBF\"日期\",\"责任中心\",\"项目编号\","},
          std::pair{"list.xlsx", "PK"}, std::pair{"list.pdf", "%PDF-"},
          std::pair{"LIST.XML", "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"}}) {
        const auto result = Export(name);
        EXPECT_EQ(result.status, 0) << name;
        EXPECT_EQ(result.output, kWritten) << name;
        EXPECT_EQ(result.errors, "") << name;
        EXPECT_TRUE(Content(name).starts_with(begins)) << name;
    }
    EXPECT_EQ(LinesOf(Content("list.csv")), 26U);
    EXPECT_EQ(FileCount(), 4U);
}

TEST_F(ExportCommandTest, WritesAnEntrysDetailLines) {
    const std::string entry = Ask("select max(iEleVid) from PM_ItemQCsub");
    const auto result = Export("lines.csv", "--details " + entry);
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(result.output, kWritten);
    const std::string lines = Ask("select count(*) from PM_ItemQCsub where iEleVid = " + entry);
    EXPECT_EQ(std::to_string(LinesOf(Content("lines.csv")) - 1), lines);
}

TEST_F(ExportCommandTest, LogsInToTheYearThatIsNamed) {
    EXPECT_EQ(Export("list.csv", "--year 2005").output, kWritten);
    ExpectRefused(Export("list.csv", "--year 1999"), "kelvane: 帐套中没有 1999 年度的会计期间\n");
}

TEST_F(ExportCommandTest, ReplacesAnExistingFile) {
    WriteText(PathOf("list.csv"), "old");
    EXPECT_EQ(Export("list.csv").status, 0);
    EXPECT_EQ(LinesOf(Content("list.csv")), 26U);
    EXPECT_EQ(FileCount(), 1U);
}

TEST_F(ExportCommandTest, RefusesAnExtensionThatItDoesNotKnow) {
    for (const char* name : {"list.txt", "list"}) {
        ExpectRefused(Export(name),
                      kNotWritten + ("kelvane: " + PathOf(name)) +
                          ": the name must end in one of these: .xlsx, .csv, .pdf, .xml\n");
    }
    EXPECT_EQ(FileCount(), 0U);
}

TEST_F(ExportCommandTest, RefusesAPlaceWithoutAFolder) {
    ExpectRefused(Export("none/list.csv"), kNotWritten + ("kelvane: " + PathOf("none/list.csv")) +
                                               ": there is no such folder\n");
    fs::create_directory(mPlace / "folder.csv");
    ExpectRefused(Export("folder.csv"),
                  kNotWritten + ("kelvane: " + PathOf("folder.csv")) + ": it is a folder\n");
}

TEST_F(ExportCommandTest, RefusesAFileThatMayNotBeWritten) {
    WriteText(PathOf("list.csv"), "old");
    fs::permissions(PathOf("list.csv"), fs::perms::owner_read | fs::perms::others_read);
    for (const fs::path& open : {mFolder.Path(), mPlace, mAccount}) {
        fs::permissions(open, fs::perms::all);
    }
    ExpectRefused(Export("list.csv", {}, kAsSomebody),
                  kNotWritten + ("kelvane: " + PathOf("list.csv")) + ": Permission denied\n");
    EXPECT_EQ(Content("list.csv"), "old");
    EXPECT_EQ(FileCount(), 1U);
}

TEST_F(ExportCommandTest, ReadsAnAccountThatCannotBeWritten) {
    const fs::path archive = mFolder / "archive";
    fs::create_directory(archive);
    fs::rename(mAccount, archive / "a.kelvane");
    mAccount = archive / "a.kelvane";
    const std::string content = ReadText(mAccount);
    fs::permissions(mFolder.Path(), fs::perms::all);
    fs::permissions(mPlace, fs::perms::all);
    constexpr fs::perms kRead = fs::perms::owner_read | fs::perms::others_read;
    fs::permissions(mAccount, kRead);
    fs::permissions(archive, kRead | fs::perms::owner_exec | fs::perms::others_exec);
    const auto before = fs::last_write_time(archive);
    const auto list = Export("list.csv", {}, kAsSomebody);
    EXPECT_EQ(list.errors, "");
    EXPECT_EQ(list.output, kWritten);
    EXPECT_EQ(LinesOf(Content("list.csv")), 26U);
    const auto lines = Export("lines.csv", "--details 12", kAsSomebody);
    EXPECT_EQ(lines.errors, "");
    EXPECT_EQ(lines.output, kWritten);
    EXPECT_EQ(fs::last_write_time(archive), before);
    EXPECT_EQ(ReadText(mAccount), content);
    fs::permissions(archive, fs::perms::owner_all);
}

TEST_F(ExportCommandTest, RefusesAnEntryWithoutLinesAndOneThatIsNotThere) {
    WriteText(PathOf("lines.csv"), "old");
    ExpectRefused(Export("lines.csv", "--details 9999"), "kelvane: there is no entry 9999\n");
    const std::string plain =
        Ask("select min(iEleVid) from PM_ItemQC where iEleVid not in (select iEleVid from "
            "PM_ItemQCsub)");
    ExpectRefused(Export("lines.csv", "--details " + plain),
                  "kelvane: entry " + plain + " has no detail lines\n");
    EXPECT_EQ(Content("lines.csv"), "old");
}

TEST_F(ExportCommandTest, WritesNoEmptyList) {
    PlainSqlite(mAccount).Rows("delete from PM_ItemQC");
    ExpectRefused(Export("list.csv"), "没有数据！\n");
    EXPECT_EQ(FileCount(), 0U);
}

// What could not be read as a whole is not written.
TEST_F(ExportCommandTest, WritesNoListThatFailedToLoad) {
    PlainSqlite(mAccount).Rows("alter table PM_ItemElement rename column cElementName to x");
    ExpectRefused(Export("list.csv"),
                  "kelvane: 读取期初列表时出错，列表可能不完整，请重新打开。\n");
    EXPECT_EQ(FileCount(), 0U);
}

TEST_F(ExportCommandTest, NamesAMissingAccountAndAnUnknownOperator) {
    ExpectRefused(Export("list.csv", "--user nobody"), "kelvane: 帐套中没有操作员 nobody\n");
    fs::remove(mAccount);
    ExpectRefused(Export("list.csv"), "kelvane: 账套文件 " + mAccount.string() + " 不存在\n");
    EXPECT_EQ(FileCount(), 0U);
}

TEST_F(ExportCommandTest, HasStatusTwoForWrongUsage) {
    for (const std::string& arguments :
         {"export " + ShellQuoted(mAccount.string()), std::string("export --to list.csv"),
          "export --to list.csv --details x " + ShellQuoted(mAccount.string())}) {
        const auto result = RunProgram(arguments);
        EXPECT_EQ(result.status, 2) << arguments;
        EXPECT_EQ(result.output, "") << arguments;
        EXPECT_NE(result.errors, "") << arguments;
    }
}

}  // namespace
}  // namespace kelvane::host_test
