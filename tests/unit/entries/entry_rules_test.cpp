#include "entries/entry_rules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/unit/entries/known_master_data.h"

namespace kelvane::entries {
namespace {

using platform::Money;
using testing::ElementsAre;
using testing::IsEmpty;

class EntryRulesTest : public testing::Test {
protected:
    static EntryTexts Good() {
        EntryTexts texts;
        texts[kDateColumn] = "2004.6.30";
        texts[kCenterColumn] = "D01";
        texts[kItemColumn] = "P01";
        texts[kElementColumn] = "人工费";
        texts[kDigestColumn] = "基础工程";
        texts[kAmountColumn] = "1,234.5";
        return texts;
    }
    std::vector<std::string> IdsOf(EntryTexts texts) {
        std::int16_t detail = -1;
        std::vector<std::string> ids;
        for (const Finding& finding : rules.CheckEntry(texts, detail)) ids.emplace_back(finding.id);
        return ids;
    }
    std::string DateText(std::string text) {
        const auto found = rules.CheckDate(text);
        return found ? found->text : text;
    }
    static std::string AmountText(std::string text) {
        const auto found = EntryRules::CheckAmount(text);
        return found ? found->text : text;
    }

    KnownMasterData data;
    EntryRules rules{data};
};

TEST_F(EntryRulesTest, AGoodEntryIsBroughtIntoItsForm) {
    EntryTexts texts = Good();
    texts[kCenterColumn] = " D01 ";
    std::int16_t detail = -1;
    EXPECT_THAT(rules.CheckEntry(texts, detail), IsEmpty());
    EXPECT_EQ(texts[kDateColumn], "2004-06-30");
    EXPECT_EQ(texts[kCenterColumn], "D01");
    EXPECT_EQ(texts[kAmountColumn], "1,234.50");
    EXPECT_EQ(detail, 0);
    const Entry entry = EntryOf(texts);
    EXPECT_EQ(entry.date, platform::DateTime(2004, 6, 30));
    EXPECT_EQ(entry.amount.ToText(), "1234.5");
    EXPECT_EQ(entry.itemCode + entry.elementName + entry.digest, "P01人工费基础工程");
}

TEST_F(EntryRulesTest, Dates) {
    EXPECT_EQ(DateText("2004-06-30"), "2004-06-30");
    EXPECT_EQ(DateText("04.6.30"), "2004-06-30");
    EXPECT_EQ(DateText(""), "日期不能为空");
    EXPECT_EQ(DateText("2004.2.30"), "日期非法");
    EXPECT_EQ(DateText("100.1.1"), "日期非法");
    EXPECT_EQ(DateText("2004.7.1"), "期初录入时间应在本年度帐套启用期间第一天(2004-07-01)之前");
    EXPECT_EQ(DateText("1899.12.31"), "期初录入时间录入有误！");
    EXPECT_EQ(DateText("1900.1.1"), "1900-01-01");
}

TEST_F(EntryRulesTest, Amounts) {
    EXPECT_EQ(AmountText("1234.5"), "1,234.50");
    EXPECT_EQ(AmountText("-0.005"), "-0.01");
    EXPECT_EQ(AmountText(" "), "0.00");
    EXPECT_EQ(AmountText(""), "期初不能为空");
    EXPECT_EQ(AmountText("12a"), "请输入数字");
}

TEST_F(EntryRulesTest, EverythingThatIsWrongIsFoundInOnePass) {
    EXPECT_THAT(IdsOf({}), ElementsAre("date.empty", "center.empty", "element.empty",
                                       "digest.empty", "amount.empty"));
    EntryTexts texts = Good();
    texts[kDateColumn] = "2004.7.1";
    texts[kItemColumn] = "P09";
    texts[kElementColumn] = "没有";
    texts[kAmountColumn] = "x";
    EXPECT_THAT(IdsOf(texts),
                ElementsAre("date.bound", "item.center", "element.unknown", "amount.number"));
    texts = Good();
    texts[kItemColumn] = "";
    EXPECT_THAT(IdsOf(texts), ElementsAre("item.empty"));
}

TEST_F(EntryRulesTest, AnItemIsOnlyAskedForInACentreThatIsOne) {
    EntryTexts texts = Good();
    texts[kCenterColumn] = "D09";
    EXPECT_THAT(IdsOf(texts), ElementsAre("center.unknown"));
    EXPECT_THAT(data.asked, ElementsAre("center D09"));
}

TEST_F(EntryRulesTest, ASettledItemTakesNoEntryAndLosesNone) {
    EntryTexts texts = Good();
    texts[kItemColumn] = "P02";
    EXPECT_THAT(IdsOf(texts), IsEmpty());
    EXPECT_FALSE(rules.CheckDeletion(texts));
    texts[kKey1Column] = "完";
    EXPECT_THAT(IdsOf(texts), ElementsAre("item.settled"));
    const auto kept = rules.CheckDeletion(texts);
    ASSERT_TRUE(kept);
    EXPECT_EQ(kept->text, "此项目已经结算，不能删除 ！");
}

TEST_F(EntryRulesTest, ABudgetIsExceededByAnythingAboveIt) {
    data.entryBudget = {.controlled = true, .money = Money::FromInteger(1000), .quantity = 0};
    data.recorded = Money::FromInteger(600);
    const BudgetedEntry entry{7, "P01", "人工费"};
    EXPECT_FALSE(rules.CheckBudget(entry, Money::FromInteger(400)));
    const auto exceeded = rules.CheckBudget(entry, Money::FromText("400.01"));
    ASSERT_TRUE(exceeded);
    EXPECT_EQ(exceeded->id, "budget.exceeded");
    EXPECT_EQ(exceeded->figures, "预算 1,000.00，已用 600.00，可用 400.00");
    EXPECT_THAT(data.asked, ElementsAre("budget P01 E01 ", "recorded beside 7 E01",
                                        "budget P01 E01 ", "recorded beside 7 E01"));
    data.entryBudget.controlled = false;
    EXPECT_FALSE(rules.CheckBudget(entry, Money::FromInteger(5000)));
}

TEST_F(EntryRulesTest, OthersMayUseABudgetUpBehindItsCheck) {
    data.entryBudget = {.controlled = true, .money = Money::FromInteger(1000), .quantity = 0};
    data.recorded = Money::FromInteger(600);
    const BudgetedEntry entry{7, "P01", "人工费"};
    std::optional<CheckedBudget> checked;
    EXPECT_TRUE(rules.CheckBudget(entry, Money::FromInteger(401), &checked));
    EXPECT_FALSE(checked);
    EXPECT_FALSE(rules.CheckBudget(entry, Money::FromInteger(400), &checked));
    ASSERT_TRUE(checked);
    data.asked.clear();
    EXPECT_EQ(rules.FindOverrun(*checked), "");
    // One question, and what it granted is known.
    EXPECT_THAT(data.asked, ElementsAre("recorded beside 7 E01"));
    data.recorded = Money::FromText("600.01");
    EXPECT_EQ(rules.FindOverrun(*checked), "预算 1,000.00，已用 600.01，可用 399.99");
    checked.reset();
    data.entryBudget.controlled = false;
    EXPECT_FALSE(rules.CheckBudget(entry, Money::FromInteger(400), &checked));
    EXPECT_FALSE(checked);
}

TEST_F(EntryRulesTest, ABudgetThatCannotBeReadSaysWhy) {
    data.unreadable = "Subquery returned more than 1 value.";
    EntryTexts texts = Good();
    std::int16_t detail = 0;
    const Findings found = rules.CheckEntry(texts, detail);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].id, "budget.failed");
    EXPECT_EQ(found[0].text, "Subquery returned more than 1 value.");
    EXPECT_EQ(found[0].caption, "项目管理");
}

TEST_F(EntryRulesTest, NoBudgetIsAskedForWhatCannotBeSaved) {
    EntryTexts texts = Good();
    texts[kAmountColumn] = "";
    EXPECT_THAT(IdsOf(texts), ElementsAre("amount.empty"));
    EXPECT_THAT(data.asked, ElementsAre("center D01", "item P01 in D01"));
}

}  // namespace
}  // namespace kelvane::entries
