// kelvane batches, run as a user runs it.
#include <gtest/gtest.h>

#include "adapters/journal/folder_journal.h"
#include "host/surroundings/batch_folder.h"
#include "tests/unit/host/program.h"
#include "tests/unit/host/temporary_folder.h"
#include "tests/unit/journal/sample_batch.h"

namespace kelvane::host_test {
namespace {

namespace fs = std::filesystem;

using journal::FolderJournal;
using journal_test::SampleIntent;
using platform::BatchOutcome;

constexpr const char* kSample = " 2026-11-22 09:30:00 张三 期初.xlsx, lines.csv";

class BatchesCommandTest : public testing::Test {
protected:
    BatchesCommandTest() { WriteText(mAccount, ""); }

    ProgramResult Batches(const std::string& more = {}, const std::string& with = {}) const {
        return RunProgram("batches " + ShellQuoted(mAccount.string()) + " " + more, {}, with);
    }
    // A finished import, an undo of it that was left, and one that cannot be read.
    void WriteThree() {
        FolderJournal journal(mPlace);
        journal.End(journal.Begin(SampleIntent()), BatchOutcome::Written);
        platform::BatchIntent undo = SampleIntent();
        undo.kind = "undo";
        undo.undoes = 1;
        undo.user = "a\nb";
        undo.file = undo.linesFile = {};
        undo.changes.pop_back();
        journal.Begin(undo);
        WriteText(mPlace / "3.jsonl", "{}\n");
    }

    TemporaryFolder mFolder;
    fs::path mAccount = mFolder / "a.kelvane";
    fs::path mPlace = mFolder / "a.kelvane.batches";
};

TEST_F(BatchesCommandTest, WithoutBatchesNothingIsSaidAndNothingIsMade) {
    const auto result = Batches();
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output + result.errors, "");
    EXPECT_EQ(Batches("--json").output, "{\"batches\":[]}\n");
    EXPECT_FALSE(fs::exists(mPlace));
}

TEST_F(BatchesCommandTest, EachBatchIsALineAndADamagedOneHidesNoOther) {
    WriteThree();
    const auto result = Batches();
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.output,
              "1 import" + std::string(kSample) +
                  ": new 1, changed 1, deleted 1: written\n"
                  "2 undo 2026-11-22 09:30:00 a b batch 1: new 1, changed 1, deleted "
                  "0: unfinished\n"
                  "3: damaged: 第 1 行已损坏（没有校验值）\n");
    const std::string noAccount = "kelvane: 账套文件 " + mAccount.string() + " 不是账套文件\n";
    EXPECT_EQ(result.errors, noAccount + "kelvane: 1 of 3 batches cannot be read whole\n");
    fs::remove(mPlace / "3.jsonl");
    EXPECT_EQ(Batches().status, 0);
    EXPECT_EQ(Batches().errors, noAccount);
}

TEST_F(BatchesCommandTest, EveryStateHasItsWord) {
    FolderJournal journal(mPlace);
    const std::string state = std::string(kSample) + ": new 1, changed 1, deleted 1: ";
    const int running = journal.Begin(SampleIntent());
    EXPECT_EQ(Batches().output, "1 import" + state + "running\n");
    journal.End(running, BatchOutcome::InDoubt);
    EXPECT_EQ(Batches().output, "1 import" + state + "in doubt\n");
    journal.End(running, BatchOutcome::NotWritten);
    EXPECT_EQ(Batches().output, "1 import" + state + "not written\n");
    const std::string whole = ReadText(mPlace / "1.jsonl");
    WriteText(mPlace / "1.jsonl", whole.substr(0, whole.find('\n') + 1));
    EXPECT_EQ(Batches().output,
              "1 import" + std::string(kSample) + ": never begun: 没有写完，断在第 2 行\n");
    WriteText(mPlace / "1.jsonl", "");
    EXPECT_EQ(Batches().output, "1: never begun: 没有写完，断在第 1 行\n");
}

TEST_F(BatchesCommandTest, JsonHasAllThatIsKnown) {
    WriteThree();
    const auto result = Batches("--json");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(
        result.output,
        R"({"batches":[{"number":1,"kind":"import","undoes":0,"time":"2026-11-22 09:30:00.005",)"
        R"("user":"张三","file":"期初.xlsx","hash":"aa","linesFile":"lines.csv","linesHash":"bb",)"
        R"("new":1,"changed":1,"deleted":1,"outcome":"written","problem":""},)"
        R"({"number":2,"kind":"undo","undoes":1,"time":"2026-11-22 09:30:00.005",)"
        R"("user":"a\nb","file":"","hash":"aa","linesFile":"","linesHash":"bb",)"
        R"("new":1,"changed":1,"deleted":0,"outcome":"unfinished","problem":""},)"
        R"({"number":3,"kind":"","undoes":0,"time":"",)"
        R"("user":"","file":"","hash":"","linesFile":"","linesHash":"",)"
        R"("new":0,"changed":0,"deleted":0,"outcome":"damaged",)"
        R"("problem":"第 1 行已损坏（没有校验值）"}]})"
        "\n");
}

TEST_F(BatchesCommandTest, ItSpeaksChinese) {
    WriteThree();
    EXPECT_EQ(
        Batches({}, "LC_ALL=C.UTF-8 LANGUAGE=zh_CN").output,
        "1 导入 2026-11-22 09:30:00 张三 期初.xlsx、lines.csv：新增 1，修改 1，删除 1：已写入\n"
        "2 撤回 2026-11-22 09:30:00 a b 第 1 批：新增 1，修改 1，删除 0：没有完成\n"
        "3：已损坏：第 1 行已损坏（没有校验值）\n");
}

TEST_F(BatchesCommandTest, TheFolderCanBeNamed) {
    WriteThree();
    fs::rename(mPlace, mFolder / "elsewhere");
    EXPECT_EQ(Batches().output, "");
    EXPECT_EQ(Batches("--journal " + ShellQuoted((mFolder / "elsewhere").string())).status, 1);
    WriteText(mFolder / "file", "");
    const std::string file = (mFolder / "file").string();
    const auto result = Batches("--journal " + ShellQuoted(file));
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors, "kelvane: 批次日志 " + file + " 不是文件夹（Not a directory）\n");
}

TEST_F(BatchesCommandTest, AnAccountThatIsNotThereIsNamed) {
    fs::remove(mAccount);
    const auto result = Batches();
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, "kelvane: there is no account file " + mAccount.string() + "\n");
    // What is left of it can still be read.
    WriteThree();
    EXPECT_FALSE(Batches().output.empty());
}

TEST_F(BatchesCommandTest, OfAServerTheyAreAmongTheUsersFilesAndNobodyIsAskedForAPassword) {
    const std::string connection = "Driver=none;Server=db1;Database=books;UID=zhang";
    const std::string home = mFolder.Path().string();
    const std::string arguments = "batches --database " + ShellQuoted(connection);
    const std::string with = "XDG_DATA_HOME=" + ShellQuoted(home);
    auto result = RunProgram(arguments, {}, with);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output + result.errors, "");
    const std::string name = host::BatchFolderOfServer(connection).filename().string();
    FolderJournal journal(mFolder / "kelvane" / "batches" / name);
    journal.End(journal.Begin(SampleIntent()), BatchOutcome::Written);
    result = RunProgram(arguments, {}, with);
    EXPECT_EQ(result.output,
              "1 import" + std::string(kSample) + ": new 1, changed 1, deleted 1: written\n");
    EXPECT_EQ(RunProgram("batches --database UID=zhang", {}, with).errors,
              "kelvane: the connection string names no server and no database; say with --journal "
              "where the account's batches are\n");
}

}  // namespace
}  // namespace kelvane::host_test
