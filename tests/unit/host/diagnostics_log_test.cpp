#include "host/surroundings/diagnostics_log.h"

#include <gtest/gtest.h>

#include <regex>

#include "tests/unit/host/temporary_folder.h"

namespace kelvane::host_test {
namespace {

using host::DiagnosticsLog;

DiagnosticsLog LogAtNoon(const std::filesystem::path& path) {
    return DiagnosticsLog(path, [] { return std::string("NOON"); });
}

TEST(DiagnosticsLogTest, AppendsOneLineAnError) {
    const TemporaryFolder folder;
    const auto path = folder / "trapped.log";
    WriteText(path, "earlier\n");
    auto log = LogAtNoon(path);
    log.Trapped("LoadNumPoints", "no such table: PM_SettingInf");
    log.Trapped("SaveRow", "first\nsecond\tthird");
    EXPECT_EQ(ReadText(path),
              "earlier\n"
              "NOON [LoadNumPoints] no such table: PM_SettingInf\n"
              "NOON [SaveRow] first second third\n");
}

TEST(DiagnosticsLogTest, StampsWithTheLocalTime) {
    const TemporaryFolder folder;
    const auto path = folder / "trapped.log";
    DiagnosticsLog(path).Trapped("Show", "gone");
    EXPECT_TRUE(std::regex_match(
        ReadText(path), std::regex(R"(\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\.\d{3} \[Show\] gone\n)")));
}

TEST(DiagnosticsLogTest, LeavesPasswordsOut) {
    const TemporaryFolder folder;
    const auto path = folder / "trapped.log";
    auto log = LogAtNoon(path);
    log.Trapped("Init", "cannot open UID=demo;PWD=s3cret;DATABASE=a Password=geheim");
    EXPECT_EQ(ReadText(path), "NOON [Init] cannot open UID=demo;PWD=***;DATABASE=a Password=***\n");
}

TEST(DiagnosticsLogTest, LeavesPasswordsOutHoweverTheyAreWritten) {
    const TemporaryFolder folder;
    const auto path = folder / "trapped.log";
    auto log = LogAtNoon(path);
    log.Trapped("a", "no PWD={a;b}c};Server=s");
    log.Trapped("b", "no PWD = x y;Server=s\nmore");
    log.Trapped("c", "no Password=\"a;b\"\nmore");
    log.Trapped("pwd=x", "no pwd={a;b}}");
    EXPECT_EQ(ReadText(path),
              "NOON [a] no PWD=***;Server=s\n"
              "NOON [b] no PWD =***;Server=s more\n"
              "NOON [c] no Password=*** more\n"
              "NOON [pwd=***] no pwd=***\n");
}

TEST(DiagnosticsLogTest, WithoutAPathNothingIsWritten) {
    DiagnosticsLog log({});
    EXPECT_TRUE(log.IsWritable());
    log.Trapped("Init", "lost");
}

TEST(DiagnosticsLogTest, AFileThatCannotBeWrittenIsNoError) {
    const TemporaryFolder folder;
    auto log = LogAtNoon(folder.Path() / "missing" / "trapped.log");
    EXPECT_FALSE(log.IsWritable());
    log.Trapped("Init", "lost");
    EXPECT_EQ(folder.FileCount(), 0U);
}

}  // namespace
}  // namespace kelvane::host_test
