#include "host/bulk/figure_table.h"

#include <gtest/gtest.h>

#include "adapters/output/files/safe_file.h"
#include "host/bulk/figure_file.h"
#include "tests/unit/host/temporary_folder.h"

namespace kelvane::host_test {
namespace {

using Lines = std::vector<std::string>;

host::FigureTable Sample() {
    return {.title = "汇总",
            .titles = {"编号", "名称", "笔数", "金额"},
            .textColumns = 2,
            .rows = {{"P01", "一号楼", "2", "1,234.50"},
                     {"", "b\tc\n", "10", "-0.0001"},
                     {"合计", "", "12", ""}}};
}

TEST(FigureTable, StandsInColumnsOfATerminal) {
    EXPECT_EQ(host::LinesOf(Sample()),
              (Lines{"编号  名称    笔数      金额", "P01   一号楼     2  1,234.50",
                     "      b c       10   -0.0001", "合计            12"}));
    // Marks that are no wider than a letter, and wide ones of an input method.
    EXPECT_EQ(host::LinesOf({.title = "",
                             .titles = {"a", "b"},
                             .textColumns = 1,
                             .rows = {{"Ä—“é”", "1"}, {"（Ａ）", "2"}, {"ｱ", "3"}}}),
              (Lines{"a       b", "Ä—“é”   1", "（Ａ）  2", "ｱ       3"}));
    EXPECT_EQ(host::LinesOf({.title = "", .titles = {"金额"}, .textColumns = 0, .rows = {}}),
              Lines{"金额"});
}

TEST(FigureTable, IsWrittenByTheExtension) {
    for (const char* name : {"a.xlsx", "a.XLSX", "a.csv", "a.pdf", "x.y/a.Pdf"}) {
        EXPECT_TRUE(host::IsFigureFile(name)) << name;
    }
    for (const char* name : {"a.xml", "a.xls", "a", ".pdf", "a.pdf/b", "a.csv "}) {
        EXPECT_FALSE(host::IsFigureFile(name)) << name;
    }
    EXPECT_TRUE(host::IsPdfFile("a.PDF"));
    EXPECT_FALSE(host::IsPdfFile("a.csv"));
    EXPECT_THROW(host::WriteFigureFile("a.xml", Sample()), output::FileFailure);
}

TEST(FigureTable, HasNumbersInATextFile) {
    const TemporaryFolder folder;
    const auto path = folder / "a.csv";
    host::WriteFigureFile(path.string(), Sample());
    std::ifstream file(path);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    EXPECT_EQ(text,
              "\xEF\xBB\xBF\"编号\",\"名称\",\"笔数\",\"金额\"\r\n"
              "\"P01\",\"一号楼\",2,1234.5\r\n,\"b\tc\n\",10,-0.0001\r\n\"合计\",,12,\r\n");
}

TEST(FigureTable, LeavesWhatWasThereWhenItCannotBeWritten) {
    const TemporaryFolder folder;
    const auto path = folder / "none" / "a.pdf";
    try {
        host::WriteFigureFile(path.string(), Sample());
        ADD_FAILURE();
    } catch (const output::FileFailure& failed) {
        EXPECT_NE(std::string(failed.what()).find(path.string()), std::string::npos)
            << failed.what();
    }
    EXPECT_EQ(folder.FileCount(), 0U);
}

}  // namespace
}  // namespace kelvane::host_test
