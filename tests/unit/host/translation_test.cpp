// The language that the program speaks, and that nothing but its words follows it.
#include "host/surroundings/translation.h"

#include <gtest/gtest.h>

#include <clocale>
#include "host/surroundings/adapter_reasons.h"
#include "tests/unit/host/program.h"
#include "tests/unit/host/temporary_folder.h"

namespace kelvane::host_test {
namespace {

using host::Told;
using host::TranslatedReason;

// As a system in Chinese has it; this one locale is everywhere.
const std::string kChinese = "LC_ALL=C.UTF-8 LANGUAGE=zh_CN";

TEST(Translation, PutsValuesInTheirPlaces) {
    EXPECT_EQ(Told("%2 of %1, %1", {"a", "b"}), "b of a, a");
    EXPECT_EQ(Told("100% of %1%", {"%2"}), "100% of %2%");
    EXPECT_EQ(Told("%3 %0 %", {"a"}), "%3 %0 %");
    EXPECT_EQ(Told("", {}), "");
}

TEST(Translation, LeavesTextsAsTheyAreUnlessItIsAskedFor) {
    EXPECT_STREQ(host::Translated("Create an account"), "Create an account");
    EXPECT_EQ(TranslatedReason("a: b.csv: it is a folder"), "a: b.csv: it is a folder");
    EXPECT_EQ(TranslatedReason(""), "");
}

TEST(Translation, FollowsTheSystem) {
    EXPECT_TRUE(RunProgram("--help", {}, kChinese).output.starts_with("项目期初\n用法：kelvane"));
    for (const char* english : {"LC_ALL=C LANGUAGE=zh_CN", "LC_ALL=C.UTF-8 LANGUAGE=en:zh_CN",
                                "LC_ALL=C.UTF-8 LANGUAGE=fr", "LC_ALL=none LANGUAGE=zh_CN"}) {
        EXPECT_TRUE(RunProgram("--help", {}, english).output.starts_with("Opening balances"))
            << english;
    }
}

TEST(Translation, OfHelpHoldsItsColumns) {
    const std::string help = RunProgram("export --help", {}, kChinese).output;
    EXPECT_TRUE(help.starts_with(
        "把期初列表写入文件\n"
        "用法：kelvane export [选项] --to FILE ACCOUNT\n"
        "      kelvane export [选项] --to FILE --database CONNECTION\n"
        "\n"
        "选项：\n"
        "  --to FILE                   文件；由扩展名决定格式：.xlsx、.csv、.pdf 或\n"
        "                              .xml。已有的文件被替换\n"))
        << help;
}

TEST(Translation, OfWhatIsWrong) {
    const TemporaryFolder folder;
    const std::string account = ShellQuoted((folder / "a.kelvane").string());
    EXPECT_EQ(RunProgram("open --yaer 3", {}, kChinese).errors,
              "kelvane: 没有选项 --yaer；是不是 --year？\n详见“kelvane open --help”。\n");
    EXPECT_EQ(RunProgram("init --sample " + account, {}, kChinese).output,
              (folder / "a.kelvane").string() + ": 示例账套，有 25 条期初\n");
    EXPECT_EQ(RunProgram("init " + account, {}, kChinese).errors,
              "kelvane: " + (folder / "a.kelvane").string() + " 已经存在；用 --force 替换它\n");
    const std::string place = (folder / "none/x.csv").string();
    EXPECT_EQ(RunProgram("export " + account + " --to " + place, {}, kChinese).errors,
              "输出到文件失败！\nkelvane: " + place + ": 没有这个文件夹\n");
}

// What is written for others to read is the same everywhere.
TEST(Translation, ChangesNoNumberAndNoDate) {
    const TemporaryFolder folder;
    const std::string account = ShellQuoted((folder / "a.kelvane").string());
    RunProgram("init --sample " + account);
    const std::string script = "init\nshow\nprint grid\nclose\n";
    const auto transcript = RunProgram("drive " + account, script);
    EXPECT_EQ(transcript.status, 0);
    EXPECT_EQ(RunProgram("drive " + account, script, kChinese).output, transcript.output);
    std::string written;
    for (const std::string& language : {std::string("LC_ALL=C"), kChinese}) {
        const auto list = folder / "list.csv";
        EXPECT_EQ(RunProgram("export " + account + " --to " + list.string(), {}, language).status,
                  0);
        const std::string content = ReadText(list);
        EXPECT_TRUE(written.empty() || content == written);
        written = content;
    }
    EXPECT_NE(written, "");
}

TEST(Translation, LeavesTheProcessInItsLocale) {
    host::FollowSystemLanguage();
    EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
}

}  // namespace
}  // namespace kelvane::host_test
