#include <gtest/gtest.h>

#include "host/surroundings/screen.h"
#include "tests/unit/host/plain_sqlite.h"
#include "tests/unit/host/program.h"
#include "tests/unit/host/temporary_folder.h"

namespace kelvane::host_test {
namespace {

using ::testing::Test;

class CommandLineTest : public Test {
protected:
    std::string Account() const { return ShellQuoted(mPath.string()); }

    TemporaryFolder mFolder;
    std::filesystem::path mPath = mFolder / "account";
};

bool Contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

TEST_F(CommandLineTest, HelpAndVersionAreNoErrors) {
    for (const char* arguments :
         {"--help", "init --help", "open --help", "drive --help", "export --help",
          "template --help", "import --help", "batches --help", "undo --help", "summary --help",
          "-h", "init -h"}) {
        const auto result = RunProgram(arguments);
        EXPECT_EQ(result.status, 0) << arguments;
        EXPECT_TRUE(Contains(result.output, "Usage: kelvane")) << result.output;
        EXPECT_EQ(result.errors, "") << arguments;
    }
    EXPECT_EQ(RunProgram("--version").output, "kelvane " KELVANE_VERSION "\n");
}

TEST_F(CommandLineTest, WrongUsageHasStatusTwoAndChangesNothing) {
    for (const std::string& arguments :
         {std::string(), std::string("make"), std::string("init"), "init --keywords 3 " + Account(),
          "init --keywords x " + Account(), "init --entries -1 " + Account(),
          "init --sample --entries 10000001 " + Account(), "init --seed 5 " + Account(),
          "init --entries 5 " + Account(), "init --sample --seed -1 " + Account(),
          "init --unknown " + Account(), "init " + Account() + " more", std::string("open"),
          "open --year x " + Account(), "open --date 2004.13.1 " + Account(), std::string("drive"),
          "drive --database odbc " + Account()}) {
        const auto result = RunProgram(arguments);
        EXPECT_EQ(result.status, 2) << arguments;
        EXPECT_EQ(result.output, "") << arguments;
        EXPECT_TRUE(Contains(result.errors, "--help")) << arguments << ": " << result.errors;
    }
    EXPECT_EQ(mFolder.FileCount(), 0U);
}

TEST_F(CommandLineTest, HelpTellsTheArgumentsAndFirstWhatIsTheCommandsOwn) {
    const std::string help = RunProgram("export --help").output;
    EXPECT_TRUE(
        help.starts_with("Write the entry list to a file\n"
                         "Usage: kelvane export [OPTIONS] --to FILE ACCOUNT\n"
                         "       kelvane export [OPTIONS] --to FILE --database CONNECTION\n"
                         "\n"
                         "Options:\n"
                         "  --to FILE                   The file; its extension says what it "
                         "becomes:\n"
                         "                              .xlsx, .csv, .pdf or .xml. An existing "
                         "one is\n"
                         "                              replaced\n"))
        << help;
    EXPECT_LT(help.find("\n  --year YEAR "), help.find("\nAccount:\n  ACCOUNT ")) << help;
    EXPECT_LT(help.find("\n  ACCOUNT "), help.find("\n  --lock-timeout SECONDS ")) << help;
    EXPECT_EQ(help.find("--help"), help.rfind("--help")) << help;
}

TEST_F(CommandLineTest, WhatIsWrongIsNamedWithWhatMayHaveBeenMeant) {
    const struct {
        std::string arguments;
        std::string reason;
        std::string command;
    } wrong[] = {
        {"inti x", "unknown command \"inti\"; did you mean \"init\"?", ""},
        {"make",
         "unknown command \"make\"; the commands are init, open, drive, export, template, import, "
         "batches, undo, check, summary",
         ""},
        {"",
         "a command is missing: init, open, drive, export, template, import, batches, undo, "
         "check, summary",
         ""},
        {"--verison", "unknown option --verison; did you mean --version?", ""},
        {"open --yaer 2004 a", "unknown option --yaer; did you mean --year?", "open "},
        {"export a --ot=x.csv", "unknown option --ot; did you mean --to?", "export "},
        {"open a --zzzzzz", "unknown option --zzzzzz", "open "},
        {"open -x a", "unknown option -x", "open "},
        {"open", "one of these is missing: ACCOUNT, --database", "open "},
        {"open a --database b", "only one of these can be given: ACCOUNT, --database", "open "},
        {"export a --to b.xlsx --editable --details 3",
         "only one of these can be given: --details, --editable", "export "},
        {"open a b", "\"b\" is one argument too many", "open "},
        {"export a", "--to is missing", "export "},
        {"export a --to", "--to lacks its value", "export "},
        {"export a --to=", "--to lacks its value", "export "},
        {"open a --user b --user c", "--user is given twice", "open "},
        {"init a --force=yes", "--force takes no value", "init "},
        {"init a --entries 5", "--entries needs --sample", "init "},
        {"open a --lock-timeout 5", "--lock-timeout needs --database", "open "},
        {"open a --year soon", "--year: \"soon\" is no number from 1 to 9999", "open "},
        {"init a --keywords 3", "--keywords: \"3\" is no number from 0 to 2", "init "},
        {"open a --date 2004.13.1", "--date: \"2004.13.1\" is no date (yyyy.mm.dd)", "open "},
        {"open 'Server=s;PWD=p'", "ACCOUNT: a database is given with --database", "open "},
    };
    for (const auto& [arguments, reason, command] : wrong) {
        const auto result = RunProgram(arguments);
        EXPECT_EQ(result.errors,
                  "kelvane: " + reason + "\n\"kelvane " + command + "--help\" tells more.\n");
        EXPECT_EQ(result.status, 2) << arguments;
    }
}

// A name behind an option is its value, whatever it looks like, and help is told whatever follows.
TEST_F(CommandLineTest, AValueIsNoOption) {
    RunProgram("init " + Account());
    EXPECT_EQ(RunProgram("export " + Account() + " --to x.csv --user --wrong").errors,
              "kelvane: 帐套中没有操作员 --wrong\n");
    EXPECT_EQ(RunProgram("open --help --wrong").status, 0);
}

TEST_F(CommandLineTest, APasswordIsNeverShown) {
    const std::string database = "'Driver=none;Server=s;Database=d;UID=k;PWD=geheim'";
    for (const std::string& arguments :
         {"init --databse " + database, "init " + database, "drive --database " + database + " x",
          "init --database " + database, "drive --database=" + database,
          "export --to x.pdf --database " + database, "init a --keywords " + database, database,
          "init a " + database}) {
        const auto result = RunProgram(arguments, "init\n");
        EXPECT_NE(result.status, 0) << arguments;
        EXPECT_FALSE(Contains(result.output + result.errors, "geheim"))
            << result.output << result.errors;
    }
}

TEST_F(CommandLineTest, ADatabaseThatDoesNotAnswerIsNamed) {
    const auto result = RunProgram("init --database 'Driver=none;Server=s;Database=d;UID=k;PWD=p'");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.output, "");
    EXPECT_TRUE(result.errors.starts_with("kelvane: d on s: ")) << result.errors;
}

TEST_F(CommandLineTest, InitCreatesAnEmptyAccount) {
    const auto result = RunProgram("init " + Account());
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, mPath.string() + ": empty account\n");
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(PlainSqlite(mPath).One("select count(*) from fitemss97"), "0");
}

TEST_F(CommandLineTest, InitCreatesASample) {
    const auto result = RunProgram("init " + Account() + " --sample --keywords 2");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, mPath.string() + ": sample account with 25 entries\n");
    EXPECT_EQ(PlainSqlite(mPath).One("select count(*) from fitemstructure where iSubItem = 1 and "
                                     "bPrimaryKey = 1"),
              "2");
}

TEST_F(CommandLineTest, ASampleHasAsManyEntriesAsAreWanted) {
    const auto result = RunProgram("init --sample --entries 0100 --seed 3 " + Account());
    EXPECT_EQ(result.output, mPath.string() + ": sample account with 100 entries\n");
    EXPECT_EQ(PlainSqlite(mPath).One("select count(*) from PM_ItemQC"), "100");
}

TEST_F(CommandLineTest, InitKeepsAnExistingFileUnlessForced) {
    WriteText(mPath, "precious");
    const auto kept = RunProgram("init " + Account());
    EXPECT_EQ(kept.status, 1);
    EXPECT_EQ(kept.output, "");
    EXPECT_EQ(kept.errors, "kelvane: " + mPath.string() + " exists already; --force replaces it\n");
    EXPECT_EQ(ReadText(mPath), "precious");
    // Imports into the account that goes tell nothing of the one that comes.
    std::filesystem::create_directory(mPath.string() + ".batches");
    std::filesystem::create_directory(mPath.string() + ".batches.1");
    EXPECT_EQ(RunProgram("init --force " + Account()).status, 0);
    EXPECT_FALSE(std::filesystem::exists(mPath.string() + ".batches"));
    EXPECT_TRUE(std::filesystem::exists(mPath.string() + ".batches.2"));
    EXPECT_EQ(PlainSqlite(mPath).One("select count(*) from Host_Unit"), "1");
}

TEST_F(CommandLineTest, InitRefusesAFolder) {
    const auto result = RunProgram("init --force " + ShellQuoted(mFolder.Path().string()));
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, "kelvane: " + mFolder.Path().string() + " is a folder\n");
}

TEST_F(CommandLineTest, WithoutAScreenThereAreNoWindows) {
    RunProgram("init --sample " + Account());
    const std::string reason = host::HasScreen() ? "the screen cannot be opened" : host::kNoScreen;
    const auto shown = RunProgram("open " + Account(), "", "DISPLAY= WAYLAND_DISPLAY=");
    EXPECT_EQ(shown.status, 1);
    EXPECT_EQ(shown.errors, "kelvane: " + reason + "\n");
    const auto chinese = RunProgram("open " + Account(), "",
                                    "LC_ALL=C.UTF-8 LANGUAGE=zh_CN DISPLAY= WAYLAND_DISPLAY=");
    EXPECT_EQ(chinese.errors == "kelvane: 不能打开屏幕\n", host::HasScreen());
    const auto driven =
        RunProgram("drive --window " + Account(), "init\n", "DISPLAY= WAYLAND_DISPLAY=");
    EXPECT_EQ(driven.status, 1);
    EXPECT_EQ(driven.errors, "kelvane: " + reason + "\n");
}

TEST_F(CommandLineTest, AScriptThatFailsHasStatusOne) {
    RunProgram("init --sample " + Account());
    EXPECT_EQ(RunProgram("drive " + Account(), "init\n").status, 0);
    const auto unknown = RunProgram("drive " + Account(), "init\nfly\n");
    EXPECT_EQ(unknown.status, 1);
    EXPECT_TRUE(Contains(unknown.output, "error: line 2: ")) << unknown.output;
    const auto nobody = RunProgram("drive " + Account(), "init user=nobody\n");
    EXPECT_EQ(nobody.status, 1);
    EXPECT_TRUE(Contains(nobody.output, "帐套中没有操作员 nobody")) << nobody.output;
}

TEST_F(CommandLineTest, AMissingAccountIsNamed) {
    const auto result = RunProgram("drive " + Account(), "init\n");
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(Contains(result.output, mPath.string())) << result.output;
    EXPECT_EQ(mFolder.FileCount(), 0U);
}

// Leaving a row checks and saves it, so walking down the list tries every entry.
TEST_F(CommandLineTest, EverySampleEntryPassesTheEntryListsChecks) {
    for (const char* keywords : {"0", "1", "2"}) {
        const auto made = RunProgram("init --force --sample --entries 60 --keywords " +
                                     std::string(keywords) + " " + Account());
        ASSERT_EQ(made.status, 0) << made.errors;
        PlainSqlite(mPath).Rows("delete from PM_ItemQC where iEleVid in (5, 18, 24)");
        PlainSqlite(mPath).Rows("delete from PM_ItemQCsub where iEleVid in (5, 18, 24)");
        std::string script = "init\nshow\n";
        for (int row = 1; row <= 57; ++row) script += "go " + std::to_string(row) + " 1\n";
        const auto result = RunProgram("drive " + Account(), script + "go 1 1\nclose\n");
        EXPECT_EQ(result.status, 0) << result.output;
        EXPECT_FALSE(Contains(result.output, "refused")) << result.output;
        EXPECT_TRUE(Contains(result.output, "> go 57 1\n> go 1 1\n")) << result.output;
    }
}

TEST_F(CommandLineTest, TheLogIsOffUnlessNamed) {
    RunProgram("init --sample " + Account());
    PlainSqlite(mPath).Rows(
        "update AccInformation set cValue = 'soon' where cName = 'dPMStartDate'");
    const std::string script = "init\nshow\nclose\n";
    RunProgram("drive " + Account(), script, "KELVANE_LOG=");
    EXPECT_EQ(mFolder.FileCount(), 1U);
    const auto log = mFolder / "trapped.log";
    RunProgram("drive " + Account(), script, "KELVANE_LOG=" + ShellQuoted(log.string()));
    EXPECT_TRUE(Contains(ReadText(log), "[LoadPmStartDate] ")) << ReadText(log);
    EXPECT_FALSE(Contains(ReadText(log), "Data Source")) << ReadText(log);
}

}  // namespace
}  // namespace kelvane::host_test
