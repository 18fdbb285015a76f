#include "entries/bulk/bulk_rules.h"

#include <gtest/gtest.h>

#include "data/login_context.h"
#include "tests/unit/entries/known_master_data.h"

namespace kelvane::entries {
namespace {

using platform::Money;
using Told = std::vector<std::string>;

class BulkRulesTest : public ::testing::Test {
protected:
    BulkRulesTest() {
        data::gNumPointMoney = data::gNumPointPrice = data::gNumPointQty = 2;
        entry.row = 7;
        entry.texts.cells = {"",       "2004.6.30", " D01 ",  "P01",  "项目P01",
                             "一标段", "1",         "人工费", "摘要", "1,234.5"};
    }

    // The rows and columns of the tables with what was found there.
    Told Check() {
        findings.clear();
        record = BulkRules(master).Check(entry, findings);
        Told told;
        for (const BulkFinding& each : findings) {
            told.push_back((each.table == BulkTableKind::Lines ? "line " : "") +
                           std::to_string(each.row) + "." + std::to_string(each.column) + " " +
                           std::string(each.finding.id) + " " + each.finding.text);
        }
        EXPECT_EQ(record.has_value(), told.empty() && !expectRefused);
        return told;
    }
    void AddLine(int row, const std::string& code, const std::string& price,
                 const std::string& quantity, const std::string& amount = "") {
        BulkLine line;
        line.row = row;
        line.texts = {code, "", price, quantity, amount};
        entry.lines.push_back(line);
    }
    void MakeInventory() {
        entry.texts[kElementColumn] = "材料费";
        entry.texts[kAmountColumn] = "";
        AddLine(2, "M01", "10", "3");
        AddLine(3, "M02", "1.005", "2", "2.02");
    }

    KnownMasterData account;
    FileMasterData master{account};
    BulkEntry entry;
    std::vector<BulkFinding> findings;
    std::optional<EntryRecord> record;
    bool expectRefused = false;  // though nothing is found
};

TEST_F(BulkRulesTest, ASoundRowBecomesARecord) {
    EXPECT_EQ(Check(), Told{});
    EXPECT_EQ(record->entry.centerCode, "D01");
    EXPECT_EQ(record->entry.date, (platform::DateTime{2004, 6, 30}));
    EXPECT_EQ(record->entry.amount, Money::FromText("1234.5"));
    EXPECT_EQ(record->entry.key1, "一标段");
    EXPECT_EQ(record->elementCode, "E01");
    EXPECT_TRUE(record->lines.empty());
}

TEST_F(BulkRulesTest, EverythingThatIsWrongIsFoundInOnePass) {
    entry.texts.cells = {"", "x", "D09", "", "", "", "", "无", "", "1,5x"};
    EXPECT_EQ(Check(), (Told{"7.1 date.invalid 日期非法",
                             "7.2 center.unknown 此责任中心不存在或操作员没有权限，须重新输入！",
                             "7.7 element.unknown 输入的项目要素不存在，须重新输入！",
                             "7.8 digest.empty 摘要不能为空", "7.9 amount.number 请输入数字"}));
}

TEST_F(BulkRulesTest, CellsThatAreRefusedAlreadyAreNotFoundEmpty) {
    for (const int column : {kDateColumn, kCenterColumn, kElementColumn, kAmountColumn}) {
        entry.texts.cells[static_cast<std::size_t>(column)].clear();
        entry.unread.Add(column);
    }
    expectRefused = true;
    EXPECT_EQ(Check(), Told{});
    EXPECT_FALSE(record);
}

TEST_F(BulkRulesTest, KeywordsAreTheItemsInThisCentreOrNone) {
    entry.texts[kKey2Column] = "2";
    EXPECT_EQ(Check(), Told{"7.5 key.mismatch 该责任中心下此项目没有这样的关键字"});
    entry.texts[kKey1Column] = "";
    EXPECT_EQ(Check(), Told{"7.6 key.mismatch 该责任中心下此项目没有这样的关键字"});
    entry.texts[kKey2Column] = "";
    EXPECT_EQ(Check(), Told{});
}

TEST_F(BulkRulesTest, TheNameBesideTheCodeIsThatItems) {
    entry.texts[kItemNameColumn] = "项目P02";
    EXPECT_EQ(Check(), Told{"7.4 item.name 项目名称与项目编号不符，该编号的项目是“项目P01”"});
    entry.texts[kItemNameColumn] = "";
    EXPECT_EQ(Check(), Told{});
}

TEST_F(BulkRulesTest, TextsThatTheStatementsCannotTakeReachNone) {
    entry.texts[kDigestColumn] = "it's";
    entry.texts[kCenterColumn] = "D'01";
    entry.texts[kItemColumn] = "P'01";
    EXPECT_EQ(Check(),
              (Told{"7.3 text.quote 不能含有单引号（'）", "7.8 text.quote 不能含有单引号（'）",
                    "7.2 center.unknown 此责任中心不存在或操作员没有权限，须重新输入！"}));
    EXPECT_EQ(account.asked, Told{"center D'01"});
}

TEST_F(BulkRulesTest, LengthsAreThoseOfTheAccount) {
    entry.texts[kDigestColumn] = std::string(255, 'x');
    EXPECT_EQ(Check(), Told{});
    entry.texts[kDigestColumn] += "x";
    EXPECT_EQ(Check(), Told{"7.8 text.length 太长，最多 255 个字节（一个汉字为两个字节）"});
    entry.texts[kDigestColumn].clear();
    for (int i = 0; i < 128; ++i) entry.texts[kDigestColumn] += "中";
    EXPECT_EQ(Check(), Told{"7.8 text.length 太长，最多 255 个字节（一个汉字为两个字节）"});
}

TEST_F(BulkRulesTest, AmountsStayInTheRangeOfMoney) {
    const Told beyond{
        "7.9 amount.range 金额超出范围（-922,337,203,685,477.58 至 922,337,203,685,477.58）"};
    entry.texts[kAmountColumn] = "1e15";
    EXPECT_EQ(Check(), beyond);
    // Together with what the budget was used for.
    entry.texts[kAmountColumn] = "922337203685477.57";
    account.entryBudget = {true, Money::FromText("1"), 0};
    account.recorded = Money::FromText("10");
    EXPECT_EQ(Check(), beyond);
}

TEST_F(BulkRulesTest, RowsThatNobodyAddsUpMayComeToMoreThanAnAmountCanBe) {
    entry.texts[kAmountColumn] = "900000000000000";
    EXPECT_EQ(Check(), Told{});
    master.Take(*record);
    master.Take(*record);
    EXPECT_EQ(Check(), Told{});
    ASSERT_EQ(master.Budgets().size(), 1U);
    EXPECT_FALSE(master.Budgets()[0].after);
}

TEST_F(BulkRulesTest, AnAmountThatIsNotGivenIsWhatItsLinesComeTo) {
    MakeInventory();
    EXPECT_EQ(Check(), Told{});
    EXPECT_EQ(entry.texts[kAmountColumn], "");
    ASSERT_EQ(record->lines.size(), 2U);
    EXPECT_EQ(record->lines[1].price, Money::FromText("1.01"));
    EXPECT_EQ(record->lines[1].amount, Money::FromText("2.02"));
    EXPECT_EQ(record->entry.amount, Money::FromText("32.02"));
    EXPECT_EQ(record->elementCode, "E02");
}

TEST_F(BulkRulesTest, AnAmountThatIsGivenIsWhatItsLinesComeTo) {
    MakeInventory();
    entry.texts[kAmountColumn] = "32.02";
    EXPECT_EQ(Check(), Told{});
    entry.texts[kAmountColumn] = "32";
    EXPECT_EQ(Check(), Told{"7.9 amount.lines 期初与明细不符，明细合计为 32.02"});
    entry.lines.clear();
    EXPECT_EQ(Check(), Told{"7.9 amount.lines 期初与明细不符，明细合计为 0.00"});
    entry.texts[kAmountColumn] = "";
    EXPECT_EQ(Check(), Told{"7.9 amount.empty 期初不能为空"});
}

TEST_F(BulkRulesTest, ABadLineRefusesItsEntryAndSaysNothingOfTheAmount) {
    MakeInventory();
    entry.lines[0].texts.price = "-1";
    entry.lines[1].texts.amount = "2";
    EXPECT_EQ(Check(), (Told{"line 2.6 line.number 非法金额数量",
                             "line 3.8 amount.lines 余额与单价、数量不符，应为 2.02"}));
    entry.lines[0].texts = {"", "", "1", "1", ""};
    entry.lines[1].texts = {"M09", "", "1", "1", ""};
    AddLine(4, "M01", "0", "1");
    AddLine(5, "M'1", "1", "1");
    EXPECT_EQ(Check(), (Told{"line 2.2 line.code.empty 编码不能为空",
                             "line 3.2 line.code.unknown 存货编码不存在或所属分类不正确",
                             "line 4.6 line.price.zero 单价不能为空或0",
                             "line 5.2 text.quote 不能含有单引号（'）"}));
}

TEST_F(BulkRulesTest, AnAmountBesideARefusedQuantityIsNotHeldAgainstIt) {
    MakeInventory();
    entry.lines[1].texts.quantity.clear();
    entry.lines[1].unread.Add(kLineQuantityColumn);
    expectRefused = true;
    EXPECT_EQ(Check(), Told{});
}

TEST_F(BulkRulesTest, ACodeStandsOnceInAnEntry) {
    MakeInventory();
    AddLine(4, "M01", "1", "1");
    EXPECT_EQ(Check(), Told{"line 4.2 line.code.duplicate 编码不能重复"});
}

TEST_F(BulkRulesTest, LinesBelongToElementsThatAreKeptInLines) {
    AddLine(2, "M01", "10", "3");
    EXPECT_EQ(Check(), Told{"line 2.1 line.entry 要素“人工费”没有明细"});
}

TEST_F(BulkRulesTest, RowsOfOneFileUseABudgetUpTogether) {
    account.entryBudget = {true, Money::FromText("2000"), 0};
    account.recorded = Money::FromText("700");
    EXPECT_EQ(Check(), Told{});
    master.Take(*record);
    EXPECT_EQ(Check(), Told{"7.9 budget.exceeded 金额超出项目预算中的项目期初发生额"});
    // What an entry of the account gives back counts as well.
    EntryRecord stored;
    stored.entry.itemCode = "P01";
    stored.entry.amount = Money::FromText("700");
    stored.elementCode = "E01";
    master.Release(stored);
    entry.texts[kAmountColumn] = "765.5";
    EXPECT_EQ(Check(), Told{});
}

TEST_F(BulkRulesTest, LinesOfOneFileUseABudgetUpTogether) {
    MakeInventory();
    account.lineBudget = {true, Money::FromText("50"), 5};
    EXPECT_EQ(Check(), Told{});
    master.Take(*record);
    EXPECT_EQ(Check(), (Told{"line 2.8 line.budget.amount 金额超出项目预算中的项目期初发生额"}));
    entry.lines[0].texts.price = "1";
    EXPECT_EQ(Check(), (Told{"line 2.7 line.budget.quantity 数量超出项目预算中的项目期初数量"}));
}

TEST_F(BulkRulesTest, ABudgetThatCannotBeReadIsTold) {
    account.unreadable = "two versions";
    EXPECT_EQ(Check(), Told{"7.9 budget.failed two versions"});
}

TEST_F(BulkRulesTest, TheAccountIsAskedEachQuestionOnce) {
    EXPECT_EQ(Check(), Told{});
    const auto asked = account.asked.size();
    EXPECT_EQ(Check(), Told{});
    EXPECT_EQ(account.asked.size(), asked);
}

}  // namespace
}  // namespace kelvane::entries
