#include "entries/bulk/table_reading.h"

#include <gtest/gtest.h>

#include "tests/unit/entries/bulk/memory_table.h"

namespace kelvane::entries_test {
namespace {

using entries::BulkTable;
using entries::EntryTableShape;
using entries::HiddenRows;
using entries::LineTableShape;
using entries::ReadBulkTable;
using entries::TableReading;
using entries::TableShape;

const std::vector<entries::KeywordField> kKeywords{{"标段"}};
const std::vector<std::string> kTitles{"日期", "责任中心", "项目编号",  "标段",
                                       "要素", "摘要",     "未结转期初"};

TableShape Shape() {
    return EntryTableShape("工程名称", kKeywords, false);
}

// A row that is in order, with this digest.
std::vector<TableCell> Row(const std::string& digest) {
    return {Date({2004, 7, 1}), Text("01"),   Text("P1"),      Text("A"),
            Text("材料"),       Text(digest), Number("1234.5")};
}

MemoryTable Table() {
    return MemoryTable("期初");
}

// What was read: each row, then each finding, then each note.
std::string Read(platform::TableReader& reader, const TableReading& how = {},
                 const TableShape& shape = Shape()) {
    const BulkTable table = ReadBulkTable(reader, shape, how);
    std::string shown;
    for (const auto& row : table.rows) {
        shown += std::to_string(row.number);
        for (const std::string& text : row.texts) {
            if (!text.empty()) shown += "|" + text;
        }
        shown += "\n";
    }
    for (const auto& found : table.findings) {
        shown +=
            found.place + " " + std::string(found.finding.id) + " " + found.finding.text + "\n";
    }
    for (const auto& note : table.notes) shown += note.place + " " + note.text + "\n";
    return shown;
}

TEST(TableReading, ReadsRowsBelowTheTitles) {
    auto table = Table();
    table.AddTexts(kTitles).Add(Row("一")).Add(Row("二"));
    EXPECT_EQ(Read(table),
              "2|2004-07-01|01|P1|A|材料|一|1234.5\n3|2004-07-01|01|P1|A|材料|二|1234.5\n");
    const BulkTable read = ReadBulkTable(table, Shape(), {});
    EXPECT_EQ(read.titleRow, 1);
    EXPECT_EQ(read.rows[0].texts[entries::kDigestColumn], "一");
    EXPECT_EQ(read.rows[0].texts[entries::kKey1Column], "A");
    EXPECT_EQ(PlaceOf(table, read, 2, entries::kDigestColumn), "期初!2:6:摘要");
    EXPECT_EQ(PlaceOf(table, read, 2, entries::kRowNumberColumn), "期初!2:0:");
    EXPECT_EQ(PlaceOf(table, read, 2, 0), "期初!2:0:");
}

TEST(TableReading, TitlesStandInAnyOrderAndForm) {
    auto table = Table();
    table.AddTexts({"未结转期初", " 摘 要", "要\n素", "标段（关键字）", "项目编号", "责任中心",
                    "日期", "工程名称"});
    table.Add({Number("5"), Text("x"), Text("材料"), Text("A"), Text("P1"), Text("01"),
               Text("04.7.1"), Text("N")});
    EXPECT_EQ(Read(table), "2|04.7.1|01|P1|N|A|材料|x|5\n");
}

TEST(TableReading, WhatStandsAboveAndBesideIsToldAndNotRead) {
    auto table = Table();
    auto titles = kTitles;
    titles.insert(titles.begin() + 1, "备注");
    titles.push_back("");
    auto row = Row("一");
    row.insert(row.begin() + 1, Text("更多"));
    auto untitled = row;
    untitled.push_back(Text("x"));
    table.AddTexts({"期初余额表"}).AddTexts({"2004 年"}, 3).AddTexts(titles, 5);
    table.Add(row).Add(untitled).Add(untitled);
    EXPECT_EQ(Read(table),
              "6|2004-07-01|01|P1|A|材料|一|1234.5\n7|2004-07-01|01|P1|A|材料|一|1234.5\n"
              "8|2004-07-01|01|P1|A|材料|一|1234.5\n"
              "期初!1:0: 没有读入标题以上的 2 行\n期初!5:2:备注 没有读入列“备注”\n"
              "期初!7:9: 没有读入没有标题的列\n");
}

TEST(TableReading, TitlesAreWithinTheFirstTwentyRows) {
    auto table = Table();
    table.AddTexts({"x"}).AddTexts(kTitles, 20).Add(Row("一"));
    EXPECT_EQ(Read(table),
              "21|2004-07-01|01|P1|A|材料|一|1234.5\n期初!1:0: 没有读入标题以上的 1 行\n");
    auto late = Table();
    late.AddTexts(kTitles, 21).Add(Row("一"));
    EXPECT_EQ(Read(late),
              "期初!0:0: file.column 前 20 行中没有标题行（须有“日期”和“未结转期初”）\n");
    auto none = Table();
    EXPECT_EQ(Read(none),
              "期初!0:0: file.column 前 20 行中没有标题行（须有“日期”和“未结转期初”）\n");
}

TEST(TableReading, ColumnsThatAreMissingOrTwiceAreFound) {
    auto table = Table();
    table.AddTexts({"日期", "未结转期初", "摘要", "责任中心", "日期", "标段", "标段 (关键字)"})
        .Add(Row("一"));
    EXPECT_EQ(
        Read(table),
        "期初!1:0:项目编号 file.column 缺少列“项目编号”\n期初!1:0:要素 file.column 缺少列“要素”\n"
        "期初!1:5:日期 file.column 列“日期”不止一个\n"
        "期初!1:7:标段 (关键字) file.column 列“标段 (关键字)”不止一个\n");
}

TEST(TableReading, AsManyKeywordsAsTheClassHas) {
    auto table = Table();
    table.AddTexts(kTitles).Add(Row("一"));
    EXPECT_EQ(Read(table, {}, EntryTableShape("", {}, false)),
              "2|2004-07-01|01|P1|材料|一|1234.5\n期初!1:4:标段 没有读入列“标段”\n");
    const std::vector<entries::KeywordField> two{{"标段"}, {"部位"}};
    EXPECT_EQ(Read(table, {}, EntryTableShape("", two, false)),
              "期初!1:0:部位 (关键字) file.column 缺少列“部位 (关键字)”\n");
    EXPECT_EQ(Read(table, {}, EntryTableShape("", kKeywords, true)),
              "期初!1:0:行号 file.column 缺少列“行号”\n");
}

TEST(TableReading, BlankRowsAreSkipped) {
    auto table = Table();
    auto note = std::vector<TableCell>(7);
    note.push_back(Text("只有备注"));
    table.AddTexts(kTitles).Add({Text("  "), Text("\u3000")}).Add(note).Add(Row("一"), 9);
    EXPECT_EQ(Read(table), "9|2004-07-01|01|P1|A|材料|一|1234.5\n期初!3:8: 没有读入没有标题的列\n");
}

TEST(TableReading, CellsThatCannotBeToldAreFoundInTheirOrder) {
    auto table = Table();
    table.AddTexts({"未结转期初", "日期", "责任中心", "项目编号", "标段", "要素", "摘要"});
    table.Add({Text("12,34"),
               Number("38169"),
               Number("1"),
               {0, CellKind::Error, "#N/A", {}},
               {0, CellKind::NoResult, "", {}},
               Text("材料"),
               Text("x")});
    TableReading how;
    how.propose = [](int column, std::string_view number) -> std::optional<std::string> {
        return column == entries::kCenterColumn && number == "1" ? "01" : "";
    };
    EXPECT_EQ(Read(table, how),
              "2|材料|x\n期初!2:1:未结转期初 amount.number 请输入数字\n"
              "期初!2:2:日期 cell.date 38169 不是日期\n"
              "期初!2:3:责任中心 cell.code.number 编码应为文本，此处是数字，可能是编码 01\n"
              "期初!2:4:项目编号 cell.error 单元格是错误值 #N/A\n"
              "期初!2:5:标段 cell.formula 公式没有保存计算结果，须重新计算后保存\n");
    const BulkTable read = ReadBulkTable(table, Shape(), how);
    EXPECT_EQ(read.findings[1].row, 2);
    EXPECT_EQ(read.findings[1].title, "日期");
    EXPECT_EQ(read.findings[1].finding.column, entries::kDateColumn);
}

TEST(TableReading, HiddenRowsNeedADecision) {
    auto table = Table();
    table.AddTexts({"x"}).AddTexts(kTitles).Add(Row("一")).Add(Row("二"), 0, true);
    table.Add({Text(" ")}, 0, true).Add(Row("三"), 0, true);
    const std::string first = "3|2004-07-01|01|P1|A|材料|一|1234.5\n";
    const std::string above = "期初!1:0: 没有读入标题以上的 1 行\n";
    EXPECT_EQ(Read(table),
              first +
                  "期初!4:0: file.hidden 有 2 个隐藏行，须指明略过（--hidden skip）还是读入"
                  "（--hidden take）\n" +
                  above);
    TableReading how;
    how.hidden = HiddenRows::Skip;
    EXPECT_EQ(Read(table, how), first + above + "期初!4:0: 没有读入隐藏的 2 行\n");
    how.hidden = HiddenRows::Take;
    EXPECT_EQ(Read(table, how), first +
                                    "4|2004-07-01|01|P1|A|材料|二|1234.5\n"
                                    "6|2004-07-01|01|P1|A|材料|三|1234.5\n" +
                                    above + "期初!4:0: 读入了隐藏的 2 行\n");
    EXPECT_EQ(ReadBulkTable(table, Shape(), how).hiddenRows, 2);
}

TEST(TableReading, MergedCellsAreFoundWhereTheyAreRead) {
    auto table = Table();
    auto row = Row("一");
    row.push_back(Text("x"));
    auto titles = kTitles;
    titles.push_back("备注");
    table.AddTexts({"期初余额表"}).AddTexts(titles).Add(row).Add(row).Add(row).Add(row);
    table.Merge({1, 1, 1, 8}).Merge({2, 8, 6, 9}).Merge({6, 7, 6, 7});
    const BulkTable beside = ReadBulkTable(table, Shape(), {});
    EXPECT_TRUE(beside.findings.empty());
    table.Merge({4, 2, 5, 3}).Merge({5, 1, 5, 1}).Merge({2, 5, 2, 6});
    const BulkTable read = ReadBulkTable(table, Shape(), {});
    std::vector<std::string> places;
    for (const auto& found : read.findings) {
        EXPECT_EQ(found.finding.text, "合并的单元格不能导入，须先取消合并");
        EXPECT_EQ(found.finding.id, "cell.merged");
        places.push_back(found.place);
    }
    EXPECT_EQ(places, (std::vector<std::string>{"期初!2:5:要素", "期初!4:2:责任中心",
                                                "期初!5:2:责任中心"}));
}

TEST(TableReading, LinesHaveTheirTitles) {
    for (const char* code : {"编码", "设备编码", "存货编码"}) {
        MemoryTable table("明细");
        table.AddTexts({"行号", code, "数量", "台班单价"});
        table.Add({Number("1"), Text("E01"), Text("1,5"), Number("2.5")});
        EXPECT_EQ(Read(table, {}, LineTableShape()),
                  "2|1|E01|2.5\n明细!2:3:数量 line.number 非法金额数量\n");
    }
    MemoryTable table("明细");
    table.AddTexts({"数量", "行号"});
    EXPECT_EQ(Read(table, {}, LineTableShape()),
              "明细!1:0:编码 file.column 缺少列“编码”\n明细!1:0:单价 file.column 缺少列“单价”\n");
}

TEST(TableReading, TheSheetIsTheOwnOneOrTheFirstWithTheTitles) {
    MemoryTable table;
    table.AddSheet("说明").AddTexts({"x"});
    table.AddSheet("旧", true).AddTexts(kTitles).Add(Row("旧"));
    table.AddSheet("甲").AddTexts(kTitles).Add(Row("甲"));
    table.AddSheet("乙").AddTexts(kTitles).Add(Row("乙"));
    EXPECT_EQ(ReadBulkTable(table, Shape(), {}).sheet, 2U);
    TableReading how;
    how.sheet = "旧";
    EXPECT_EQ(ReadBulkTable(table, Shape(), how).sheet, 1U);
    how.sheet = "丙";
    EXPECT_THROW(ReadBulkTable(table, Shape(), how), platform::TableRefused);
    table.AddSheet("期初").AddTexts({"x"});
    EXPECT_EQ(Read(table),
              "期初!0:0: file.column 前 20 行中没有标题行（须有“日期”和“未结转期初”）\n")
        << "another one is not taken for it";
    MemoryTable onlyHidden;
    onlyHidden.AddSheet("说明");
    onlyHidden.AddSheet("旧", true).AddTexts(kTitles);
    EXPECT_EQ(ReadBulkTable(onlyHidden, Shape(), {}).sheet, 1U);
}

TEST(TableReading, TheEditableTableHasMoreColumns) {
    auto titles = kTitles;
    for (const char* more : {"操作", "编号", "校验"}) titles.emplace_back(more);
    auto row = Row("一");
    for (const char* more : {"删除", "", "abc"}) row.push_back(Text(more));
    row[8] = Number("12");
    auto table = Table();
    table.AddTexts(titles).Add(row);
    const BulkTable read = ReadBulkTable(table, Shape(), {});
    EXPECT_EQ(read.rows.at(0).texts[entries::kOperationColumn], "删除");
    EXPECT_EQ(read.rows[0].texts[entries::kIdentityColumn], "12");
    EXPECT_EQ(read.rows[0].texts[entries::kCheckColumn], "abc");
    EXPECT_TRUE(read.notes.empty());
}

TEST(TableReading, ColumnsThatAreGivenNeedNoTitles) {
    auto table = Table();
    table.AddTexts({"何时", "多少", "谁"}).Add({Date({2004, 7, 1}), Number("5"), Text("01")});
    entries::GivenColumns given{1, std::vector<BulkTable::Place>(entries::kEntryTableColumnCount)};
    given.places[entries::kDateColumn] = {1, "何时"};
    given.places[entries::kAmountColumn] = {2, "多少"};
    given.places[entries::kCenterColumn] = {3, "谁"};
    EXPECT_EQ(Read(table, {.columns = given}), "2|2004-07-01|01|5\n");

    given.titleRow = 0;
    EXPECT_EQ(Read(table, {.columns = given}),
              "1|何时|谁\n2|2004-07-01|01|5\n期初!1:2:多少 amount.number 请输入数字\n");
}

TEST(TableReading, ARefusedCellKeepsWhatItHas) {
    auto table = Table();
    auto row = Row("一");
    row[1] = Number("7");
    table.AddTexts(kTitles).Add(std::move(row));
    const BulkTable read = ReadBulkTable(table, Shape(), {});
    ASSERT_EQ(read.findings.size(), 1U);
    EXPECT_EQ(read.findings.front().given, "7");
}

}  // namespace
}  // namespace kelvane::entries_test
