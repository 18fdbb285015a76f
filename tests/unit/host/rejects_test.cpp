// Refused rows in a file of their own, read again as an import reads it.
#include <gtest/gtest.h>

#include "adapters/output/formats/table_file.h"
#include "adapters/tables/cell_reference.h"
#include "adapters/tables/open_table.h"
#include "entries/bulk/workbook_sheets.h"
#include "host/bulk/bulk_sheets.h"
#include "host/bulk/rejects.h"
#include "tests/unit/host/temporary_folder.h"

namespace kelvane::host_test {
namespace {

using entries::BulkTable;
using entries::TableShape;
using host::Reasons;
using host::RefusedTable;
using platform::CellKind;
using platform::ColumnUse;
using platform::DateCell;
using platform::NumberCell;
using platform::TableFile;
using platform::TableFileSheet;
using platform::TextCell;

TableShape EntryShape() {
    const std::vector<entries::KeywordField> keywords{{"标段"}};
    return entries::EntryTableShape("项目名称", keywords, true);
}

// A table that was imported, and what of it was refused.
struct Imported {
    Imported(const std::string& path, TableShape tableShape, Reasons why)
        : reader(tables::OpenTable(path)),
          shape(std::move(tableShape)),
          table(ReadBulkTable(*reader, shape, {})),
          refused{*reader, shape, table, std::move(why)} {}

    std::unique_ptr<platform::TableReader> reader;
    TableShape shape;
    BulkTable table;
    RefusedTable refused;
};

std::string Shown(const std::string& path) {
    constexpr std::string_view kKinds = "-tndef";
    const auto reader = tables::OpenTable(path);
    std::string shown;
    for (std::size_t sheet = 0; sheet < reader->Sheets().size(); ++sheet) {
        shown += "[" + reader->Sheets()[sheet].name + "]\n";
        reader->Read(sheet, [&](const platform::TableRow& row) {
            std::string line;
            for (const auto& cell : row.cells) {
                line += line.empty() ? "" : "|";
                line += tables::ColumnName(cell.column) + ":" +
                        kKinds[static_cast<std::size_t>(cell.kind)] + " " +
                        (cell.kind == CellKind::Date ? cell.date.DateText() : cell.text);
            }
            shown += line + "\n";
            return true;
        });
    }
    return shown;
}

class RejectsTest : public testing::Test {
protected:
    std::string PathOf(const std::string& name) const { return (mFolder / name).string(); }

    TemporaryFolder mFolder;
};

constexpr const char* kEntryText =
    "期初表\n"
    "行号,备注,日期,责任中心,项目编号,标段,要素,摘要,未结转期初\n"
    "1,a,2004.7.1,01,P1,A,材料,第一,\"1,234.50\"\n"
    "2,b,2004.7.1,02,P1,A,材料,=第二,-7\n"
    "\n"
    "3,c,2004.7.1,03,P1,A,材料,第三,5\n"
    "4,d,2004.7.1,04,P1,A,材料,第四,\n";
constexpr const char* kLineText =
    "行号,编码,单价,数量\n1,E1,1,2\n4,E2,1,2\n 2 ,E3,1,2\n4,E4,x,2\n9,E5,1,2\n";

TEST_F(RejectsTest, OfTextsAreTextsOfTheSameLayout) {
    WriteText(PathOf("in.csv"), kEntryText);
    WriteText(PathOf("lines.csv"), kLineText);
    Imported entries(PathOf("in.csv"), EntryShape(),
                     {{0, {"整个文件"}}, {4, {"不存在", "没有权限", "不存在"}}});
    Imported lines(PathOf("lines.csv"), entries::LineTableShape(),
                   {{5, {"不是数字"}}, {6, {"没有这一行"}}});
    EXPECT_EQ(WriteRejects(PathOf("out.csv"), entries.refused, &lines.refused), 6U);
    EXPECT_EQ(ReadText(PathOf("out.csv")),
              "\xEF\xBB\xBF\"行号\",\"备注\",\"日期\",\"责任中心\",\"项目编号\",\"标段\",\"要素\","
              "\"摘要\",\"未结转期初\",\"原因\"\r\n"
              "\"2\",\"b\",\"2004.7.1\",\"02\",\"P1\",\"A\",\"材料\",\"'=第二\",\"-7\","
              "\"不存在；没有权限\"\r\n"
              "\"4\",\"d\",\"2004.7.1\",\"04\",\"P1\",\"A\",\"材料\",\"第四\",,\r\n");
    EXPECT_EQ(
        ReadText(PathOf("out.明细.csv")),
        "\xEF\xBB\xBF\"行号\",\"编码\",\"单价\",\"数量\",\"原因\"\r\n"
        "\"4\",\"E2\",\"1\",\"2\",\r\n\" 2 \",\"E3\",\"1\",\"2\",\r\n"
        "\"4\",\"E4\",\"x\",\"2\",\"不是数字\"\r\n\"9\",\"E5\",\"1\",\"2\",\"没有这一行\"\r\n");
}

TEST_F(RejectsTest, OfTextsAsAWorkbookAreReadAsTheyWere) {
    WriteText(PathOf("in.csv"), kEntryText);
    WriteText(PathOf("lines.csv"), kLineText);
    Imported entries(PathOf("in.csv"), EntryShape(), {{3, {"甲"}}, {4, {"乙"}}});
    Imported lines(PathOf("lines.csv"), entries::LineTableShape(), {});
    EXPECT_EQ(WriteRejects(PathOf("out.xlsx"), entries.refused, &lines.refused), 4U);
    Imported again(PathOf("out.xlsx"), EntryShape(), {});
    Imported linesAgain(PathOf("out.xlsx"), entries::LineTableShape(), {});
    ASSERT_EQ(again.table.rows.size(), 2U);
    EXPECT_EQ(again.table.rows[0].texts, entries.table.rows[0].texts);
    EXPECT_EQ(again.table.rows[1].texts, entries.table.rows[1].texts);
    EXPECT_TRUE(again.table.findings.empty());
    ASSERT_EQ(linesAgain.table.rows.size(), 2U);
    EXPECT_EQ(linesAgain.table.rows[0].texts, lines.table.rows[0].texts);
    EXPECT_EQ(linesAgain.table.rows[1].texts, lines.table.rows[2].texts);
}

TEST_F(RejectsTest, OfAWorkbookKeepEachCellAsItWas) {
    TableFileSheet sheet;
    sheet.name = "期初";
    for (const char* title : {"原因", "日期", "责任中心", "项目编号", "标段 (关键字)", "要素",
                              "摘要", "未结转期初", "行号", "", "旧原因"}) {
        sheet.columns.push_back({.title = title, .use = ColumnUse::Anything, .choices = {}});
    }
    sheet.rows.push_back({TextCell(1, "从前"), DateCell(2, {2004, 7, 1}), NumberCell(3, "101"),
                          TextCell(4, "007"), TextCell(8, "12,34"), NumberCell(9, "1"),
                          TextCell(11, "x")});
    sheet.rows.push_back({NumberCell(2, "38169"),
                          DateCell(3, {2004, 7, 2}),
                          {4, CellKind::Error, "#N/A", {}},
                          NumberCell(8, "1234.5"),
                          TextCell(10, "无题")});
    TableFile file{{sheet, host::LineSheet({})}, {}};
    file.sheets[1].rows.push_back({NumberCell(1, "1"), TextCell(2, "E1"), NumberCell(6, "0.5")});
    file.properties = {{std::string(entries::kAccountProperty), "a"}, {"别人的", "b"}};
    output::WriteTableFile(PathOf("in.xlsx"), file);
    Imported entries(PathOf("in.xlsx"), EntryShape(), {{2, {"一"}}, {3, {"二", "三"}}});
    Imported lines(PathOf("in.xlsx"), entries::LineTableShape(), {});
    EXPECT_EQ(WriteRejects(PathOf("out.xlsx"), entries.refused, &lines.refused), 3U);
    EXPECT_EQ(Shown(PathOf("out.xlsx")),
              "[期初]\n"
              "A:t 日期|B:t 责任中心|C:t 项目编号|D:t 标段 (关键字)|E:t 要素|F:t 摘要|"
              "G:t 未结转期初|H:t 行号|J:t 旧原因|K:t 原因\n"
              "A:d 2004-07-01|B:n 101|C:t 007|G:t 12,34|H:n 1|J:t x|K:t 一\n"
              "A:n 38169|B:d 2004-07-02|C:t #N/A|G:n 1234.5|I:t 无题|K:t 二；三\n"
              "[明细]\nA:t 行号|B:t 编码|C:t 名称|D:t 规格|E:t 单位|F:t 单价|G:t 数量|H:t 余额|"
              "I:t 原因\nA:n 1|B:t E1|F:n 0.5\n");
    EXPECT_EQ(tables::OpenTable(PathOf("out.xlsx"))->Properties(),
              (std::map<std::string, std::string>{{"kelvane.account", "a"}}));
    // What was wrong is wrong still, and nothing else.
    Imported again(PathOf("out.xlsx"), EntryShape(), {});
    ASSERT_EQ(again.table.findings.size(), entries.table.findings.size());
    for (std::size_t at = 0; at < again.table.findings.size(); ++at) {
        EXPECT_EQ(again.table.findings[at].finding.text, entries.table.findings[at].finding.text);
    }
}

TEST_F(RejectsTest, NumbersHaveTheDigitsThatASpreadsheetShows) {
    TableFile file{{host::EntrySheet({"项目名称", {{"标段"}}}, {}, entries::kRowNumberColumn)}, {}};
    file.sheets[0].rows.push_back({NumberCell(8, "9.95"), TextCell(9, "1")});
    output::WriteTableFile(PathOf("in.xlsx"), file);
    Imported entries(PathOf("in.xlsx"), EntryShape(), {{2, {"一"}}});
    EXPECT_EQ(WriteRejects(PathOf("out.csv"), entries.refused, nullptr), 1U);
    EXPECT_TRUE(ReadText(PathOf("out.csv")).ends_with("\r\n,,,,,,,9.95,\"1\",\"一\"\r\n"))
        << ReadText(PathOf("out.csv"));
}

TEST_F(RejectsTest, AreNoFileWhenNothingWasRefused) {
    WriteText(PathOf("in.csv"), kEntryText);
    Imported entries(PathOf("in.csv"), EntryShape(), {{0, {"整个文件"}}, {2, {"标题"}}});
    EXPECT_EQ(WriteRejects(PathOf("out.csv"), entries.refused, nullptr), 0U);
    EXPECT_EQ(mFolder.FileCount(), 1U);
}

TEST_F(RejectsTest, OtherExtensionsAreRefused) {
    WriteText(PathOf("in.csv"), kEntryText);
    Imported entries(PathOf("in.csv"), EntryShape(), {{3, {"一"}}});
    EXPECT_THROW(WriteRejects(PathOf("out.txt"), entries.refused, nullptr), output::FileFailure);
    EXPECT_EQ(mFolder.FileCount(), 1U);
}

TEST(Rejects, LinesHaveAFileBesideTheEntries) {
    EXPECT_EQ(host::LinesPathOf("拒绝.csv"), "拒绝.明细.csv");
    EXPECT_EQ(host::LinesPathOf("a/b.c/rejects.CSV"), "a/b.c/rejects.明细.CSV");
}

}  // namespace
}  // namespace kelvane::host_test
