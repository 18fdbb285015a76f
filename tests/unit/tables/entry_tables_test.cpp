// Entries from real files: the same entries, and the same faults each at its place, whatever the
// file is.
#include <gtest/gtest.h>

#include "adapters/tables/open_table.h"
#include "entries/bulk/table_reading.h"
#include "tests/unit/tables/sample_workbook.h"

namespace kelvane::tables_test {
namespace {

using entries::BulkTable;

const std::vector<entries::KeywordField> kKeywords{{"标段"}};

// Each row's texts, then each finding.
std::string Read(platform::TableReader& reader) {
    const BulkTable table =
        ReadBulkTable(reader, entries::EntryTableShape("", kKeywords, false), {});
    std::string shown;
    for (const auto& row : table.rows) {
        for (const std::string& text : row.texts) shown += text.empty() ? "" : text + "|";
        shown += "\n";
    }
    for (const auto& found : table.findings) {
        shown += found.place + ": " + std::string(found.finding.id) + "\n";
    }
    for (const auto& note : table.notes) shown += note.place + ": " + note.text + "\n";
    return shown;
}

std::string Cells(const std::vector<std::string>& texts) {
    std::string cells;
    for (const std::string& text : texts) {
        cells += "<c t='inlineStr'><is><t>" + text + "</t></is></c>";
    }
    return cells;
}

TEST(EntryTables, OfAWorkbook) {
    SampleWorkbook book;
    book.styles = "<cellXfs><xf numFmtId='0'/><xf numFmtId='14'/></cellXfs>";
    const std::string rest = Cells({"A", "材料", "摘要"});
    book.sheet =
        SheetData("<row r='2'>" + Cells({"期初表"}) + "</row><row r='4'>" +
                  Cells({"日期", "责任中心", "项目编号", "标段 (关键字)", "要素", "摘要",
                         "未结转期初", "备注"}) +
                  "</row><row r='5'><c s='1'><v>38169</v></c>" + Cells({"01", "P1"}) + rest +
                  "<c><v>1234.5</v></c><c><v>7</v></c></row><row "
                  "r='7'><c><v>38169</v></c><c><v>1</v></c>" +
                  Cells({"P1"}) + rest + Cells({"12,34"}) + "</row><row r='9' hidden='1'>" +
                  Cells({"x"}) + "</row>") +
        "<mergeCells><mergeCell ref='E7:F8'/></mergeCells>";
    const auto reader = tables::OpenTableBytes(book.Bytes(), "a.xlsx");
    EXPECT_EQ(Read(*reader),
              "2004-07-01|01|P1|A|材料|摘要|1234.5|\nP1|A|材料|摘要|\n"
              "期初!A7: cell.date\n期初!B7: cell.code.number\n期初!E7: cell.merged\n"
              "期初!G7: amount.number\n期初!A9: file.hidden\n"
              "期初!A2: 没有读入标题以上的 1 行\n期初!H4: 没有读入列“备注”\n");
}

TEST(EntryTables, OfAText) {
    const std::string text =
        "期初表\n日期;责任中心;项目编号;标段;要素;摘要;未结转期初\n"
        "2004.7.1;01;P1;A;材料;\"两\n行\";1,234.50\n"
        "2004.7.1;1.23E+17;P1;A;材料;摘要;1.234,50\n";
    EXPECT_EQ(Read(*tables::OpenTableBytes(text, "表.csv")),
              "2004.7.1|01|P1|A|材料|两\n行|1234.50|\n2004.7.1|P1|A|材料|摘要|\n"
              "表.csv:5:责任中心: cell.code.number\n表.csv:5:未结转期初: amount.number\n"
              "表.csv:1: 没有读入标题以上的 1 行\n");
}

TEST(EntryTables, OfWhatWasCopied) {
    EXPECT_EQ(Read(*tables::OpenCopiedTable("日期\t责任中心\t项目编号\t标段\t要素\t未结转期初\n")),
              "剪贴板:1:摘要: file.column\n");
}

}  // namespace
}  // namespace kelvane::tables_test
