// The rows that are about to be imported, without a window: what is found, what corrections do.
#include "ui/import/import_sheet.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/login_context_reset.h"
#include "tests/unit/entries/bulk/memory_table.h"
#include "tests/unit/entries/known_master_data.h"

namespace kelvane::ui {
namespace {

using entries_test::MemoryTable;
using entries_test::Number;
using entries_test::Text;
using testing::ElementsAre;
using testing::IsEmpty;

const std::vector<std::string> kTitles{"日期", "责任中心", "项目编号",   "项目名称", "要素",
                                       "摘要", "行号",     "未结转期初", "操作"};

class ImportSheetTest : public testing::Test {
protected:
    ~ImportSheetTest() override { support::ResetLoginContext(); }

    // A row that is in order.
    static std::vector<platform::TableCell> Row(const std::string& digest, const std::string& label,
                                                const std::string& amount,
                                                const std::string& element = "人工费") {
        return {Text("2004-06-01"), Text("D01"), Text("P01"),  Text(""), Text(element),
                Text(digest),       Text(label), Text(amount), Text("")};
    }
    static entries::BulkTable Read(MemoryTable& table) {
        return entries::ReadBulkTable(table, entries::EntryTableShape({}, {}, false), {});
    }
    static entries::BulkTable ReadLines(MemoryTable& table) {
        return entries::ReadBulkTable(table, entries::LineTableShape(), {});
    }
    void Check() { sheet.Check(account, {}); }

    entries::KnownMasterData account;
    ImportSheet sheet;
};

TEST_F(ImportSheetTest, ACellThatCannotBeReadShowsWhatItHasUntilItIsFilled) {
    MemoryTable table("期初");
    auto row = Row("一", "", "1.5");
    row[1] = Number("7");
    row[7] = Text("12,34");
    table.AddTexts(kTitles).Add(std::move(row));
    sheet.Take(Read(table), nullptr);
    Check();
    EXPECT_EQ(sheet.EntryText(0, entries::kCenterColumn), "7");
    EXPECT_EQ(sheet.EntryText(0, entries::kAmountColumn), "12,34");
    EXPECT_THAT(sheet.EntryReasons(0, entries::kCenterColumn),
                ElementsAre("编码应为文本，此处是数字 7，可能缺少前面的 0"));
    EXPECT_THAT(sheet.EntryReasons(0, entries::kAmountColumn), ElementsAre("请输入数字"));
    EXPECT_TRUE(sheet.File().isRefused);
    EXPECT_EQ(sheet.RefusedRows(), 1U);

    EXPECT_TRUE(sheet.SetEntryText(0, entries::kCenterColumn, "D01"));
    EXPECT_FALSE(sheet.SetEntryText(0, entries::kCenterColumn, "D01"));
    EXPECT_TRUE(sheet.SetEntryText(0, entries::kAmountColumn, "1,234.5"));
    Check();
    EXPECT_EQ(sheet.RefusedRows(), 0U);
    EXPECT_FALSE(sheet.File().isRefused);
    EXPECT_EQ(sheet.EntryText(0, entries::kAmountColumn), "1,234.50");
    EXPECT_EQ(sheet.Entries()[0].texts[entries::kAmountColumn], "1234.5");
}

TEST_F(ImportSheetTest, WhatWasTypedIsBroughtIntoForm) {
    MemoryTable table("期初");
    table.AddTexts(kTitles).Add(Row("一", "", "0.12345"));
    sheet.Take(Read(table), nullptr);
    EXPECT_EQ(sheet.EntryText(0, entries::kAmountColumn), "0.12345") << "nothing of it is hidden";
    sheet.SetEntryText(0, entries::kDateColumn, "4.6.7");
    EXPECT_EQ(sheet.EntryText(0, entries::kDateColumn), "2004-06-07");
    sheet.SetEntryText(0, entries::kDateColumn, "4.13.7");
    EXPECT_EQ(sheet.EntryText(0, entries::kDateColumn), "4.13.7");
    sheet.SetEntryText(0, entries::kAmountColumn, "x");
    EXPECT_EQ(sheet.EntryText(0, entries::kAmountColumn), "x");
    Check();
    EXPECT_THAT(sheet.EntryReasons(0, entries::kDateColumn), ElementsAre("日期非法"));
    EXPECT_THAT(sheet.EntryReasons(0, entries::kAmountColumn), ElementsAre("请输入数字"));
}

TEST_F(ImportSheetTest, RowsAreCheckedTogether) {
    account.entryBudget = {true, platform::Money::FromText("100"), 0};
    MemoryTable table("期初");
    table.AddTexts(kTitles).Add(Row("一", "", "60")).Add(Row("二", "", "60"));
    sheet.Take(Read(table), nullptr);
    Check();
    EXPECT_FALSE(sheet.IsRefused(0));
    EXPECT_THAT(sheet.EntryReasons(1, entries::kAmountColumn),
                ElementsAre("金额超出项目预算中的项目期初发生额：预算 100.00，已用 60.00，"
                            "可用 40.00"));
    sheet.SetEntryText(0, entries::kAmountColumn, "40");
    Check();
    EXPECT_EQ(sheet.RefusedRows(), 0U);
}

TEST_F(ImportSheetTest, AWrongLineRefusesItsEntry) {
    MemoryTable table("期初");
    table.AddTexts(kTitles).Add(Row("一", "甲", "", "材料费"));
    table.AddSheet("明细").AddTexts({"行号", "编码", "单价", "数量"});
    table.AddTexts({"甲", "M09", "2", "3"}).AddTexts({"乙", "M02", "1", "y"});
    const auto lines = ReadLines(table);
    sheet.Take(Read(table), &lines);
    Check();
    EXPECT_TRUE(sheet.IsRefused(0));
    EXPECT_TRUE(sheet.IsRefused(ImportSheet::kNoEntry));
    EXPECT_EQ(sheet.RefusedRows(), 2U);
    EXPECT_THAT(sheet.LineReasons(0, 0, entries::kLineCodeColumn),
                ElementsAre("存货编码不存在或所属分类不正确"));
    EXPECT_EQ(sheet.LineText(ImportSheet::kNoEntry, 0, entries::kLineQuantityColumn), "y");
    EXPECT_THAT(sheet.LineReasons(ImportSheet::kNoEntry, 0, entries::kLineRowNumberColumn),
                ElementsAre("没有行号为“乙”的期初"));

    sheet.SetLineText(0, 0, entries::kLineCodeColumn, "M01");
    sheet.SetLineText(ImportSheet::kNoEntry, 0, entries::kLineQuantityColumn, "5");
    sheet.SetLineText(ImportSheet::kNoEntry, 0, entries::kLineRowNumberColumn, "甲");
    Check();
    EXPECT_EQ(sheet.Lines(0).size(), 2U);
    EXPECT_EQ(sheet.RefusedRows(), 0U);
}

TEST_F(ImportSheetTest, ARowThatIsLeftOutTakesItsFindingsAndLinesAlong) {
    MemoryTable table("期初");
    auto bad = Row("坏", "甲", "x", "材料费");
    table.AddTexts(kTitles).Add(std::move(bad)).Add(Row("好", "", "1"));
    table.AddSheet("明细").AddTexts({"行号", "编码", "单价", "数量"});
    table.AddTexts({"甲", "M01", "2", "x"});
    const auto lines = ReadLines(table);
    sheet.Take(Read(table), &lines);
    sheet.RemoveEntry(0);
    Check();
    ASSERT_EQ(sheet.Entries().size(), 1U);
    EXPECT_FALSE(sheet.HasLines());
    EXPECT_FALSE(sheet.File().isRefused);
    EXPECT_EQ(sheet.RefusedRows(), 0U);
}

TEST_F(ImportSheetTest, MoreRowsGoOnBelowWithTheirOwnFindings) {
    MemoryTable table("期初");
    table.AddTexts(kTitles).Add(Row("一", "", "1"), 5);
    sheet.Take(Read(table), nullptr);
    MemoryTable more("期初");
    more.AddTexts(kTitles).Add(Row("二", "", "2")).Add(Row("三", "", "z"));
    sheet.Append(Read(more));
    Check();
    EXPECT_EQ(sheet.Entries()[1].row, 6);
    EXPECT_EQ(sheet.Entries()[2].row, 7);
    EXPECT_FALSE(sheet.IsRefused(1));
    EXPECT_EQ(sheet.EntryText(2, entries::kAmountColumn), "z");
    EXPECT_THAT(sheet.EntryReasons(2, entries::kAmountColumn), ElementsAre("请输入数字"));
}

TEST_F(ImportSheetTest, ANewLineGetsItsEntryANumber) {
    MemoryTable table("期初");
    table.AddTexts(kTitles).Add(Row("一", "", "", "材料费")).Add(Row("二", "2", "1"));
    sheet.Take(Read(table), nullptr);
    sheet.AddLine(0);
    EXPECT_EQ(sheet.EntryText(0, entries::kRowNumberColumn), "3") << "2 is another row's";
    EXPECT_EQ(sheet.LineText(0, 0, entries::kLineRowNumberColumn), "3");
    sheet.SetLineText(0, 0, entries::kLineCodeColumn, "M01");
    sheet.SetLineText(0, 0, entries::kLinePriceColumn, "10");
    sheet.SetLineText(0, 0, entries::kLineQuantityColumn, "2");
    Check();
    EXPECT_EQ(sheet.RefusedRows(), 0U);
}

TEST_F(ImportSheetTest, WhatStandsInAColumnThatIsNotShownIsTheRows) {
    MemoryTable table("期初");
    auto titles = kTitles;
    titles.emplace_back("编号");
    auto row = Row("一", "", "1");
    row[8] = Text("改");
    table.AddTexts(titles).Add(row).Add(Row("二", "", "1"));
    sheet.Take(Read(table), nullptr);
    EXPECT_TRUE(sheet.HasOperations());
    Check();
    EXPECT_THAT(sheet.EntryReasons(0, entries::kOperationColumn),
                ElementsAre("“操作”只能是空白或“删除”，此处是“改”"));
    entries::ImportPlan plan;
    plan.findings.push_back({entries::BulkTableKind::Entries, 2, entries::kIdentityColumn,
                             entries::Found(entries::Rule::EntryGone)});
    sheet.TakeFindings(plan);
    EXPECT_THAT(sheet.EntryReasons(0, 0), ElementsAre("该行记录已经被他人删除"));
    EXPECT_THAT(sheet.EntryReasons(0, entries::kOperationColumn), IsEmpty());
}

}  // namespace
}  // namespace kelvane::ui
