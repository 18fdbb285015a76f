#include "entries/line_rules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "entries/budget_room.h"
#include "tests/unit/entries/known_master_data.h"

namespace kelvane::entries {
namespace {

using platform::Money;
using testing::ElementsAre;
using testing::IsEmpty;

class LineRulesTest : public testing::Test {
protected:
    static LineTexts Good() { return {"M01", "钢筋", "1,000.00", "2.00", "2,000.00"}; }
    std::vector<std::string> IdsOf(const LineTexts& line,
                                   const std::vector<std::string>& others = {}) {
        std::vector<std::string> ids;
        for (const Finding& finding : rules.CheckLine(line, others)) ids.emplace_back(finding.id);
        return ids;
    }

    KnownMasterData data;
    LineRules rules{data, DetailKind::Inventory, {5, "P01", "材料费"}};
};

TEST_F(LineRulesTest, AGoodLine) {
    EXPECT_THAT(IdsOf(Good(), {"M02"}), IsEmpty());
}

TEST_F(LineRulesTest, WhatALineNeedsIsAskedInOrder) {
    LineTexts line;
    const auto missing = [&] { return std::string(LineRules::CheckComplete(line)->id); };
    EXPECT_EQ(missing(), "line.code.empty");
    line.code = "M01";
    EXPECT_EQ(missing(), "line.name.empty");
    line.name = "钢筋";
    EXPECT_EQ(missing(), "line.price.zero");
    line.price = "1";
    EXPECT_EQ(missing(), "line.quantity.zero");
    line.quantity = "1";
    EXPECT_FALSE(LineRules::CheckComplete(line));
}

TEST_F(LineRulesTest, AWholeLineTellsAllThatIsWrong) {
    LineTexts line;
    EXPECT_THAT(IdsOf(line),
                ElementsAre("line.code.empty", "line.price.zero", "line.quantity.zero"));
    line.code = "X";
    line.price = "-1";
    EXPECT_THAT(IdsOf(line), ElementsAre("line.code.unknown", "line.name.empty", "line.number",
                                         "line.quantity.zero"));
}

TEST_F(LineRulesTest, NumbersHaveNoSign) {
    LineTexts line = Good();
    line.price = "-1";
    line.quantity = "2x";
    const Findings found = rules.CheckLine(line, {});
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].text, "非法金额数量");
    EXPECT_EQ(found[0].column, static_cast<int>(LineColumn::Price));
    EXPECT_EQ(found[1].column, static_cast<int>(LineColumn::Quantity));
    EXPECT_FALSE(LineRules::CheckNumber(""));
    EXPECT_FALSE(LineRules::CheckNumber("1,234.5"));
}

TEST_F(LineRulesTest, AnUnknownItemIsNamedByItsKindAndByWhatWasSought) {
    const auto textOf = [this](DetailKind kind, LineField by) {
        const LineRules of(data, kind, {5, "P01", "材料费"});
        return std::get<Finding>(of.Find(by, "X", "")).text;
    };
    EXPECT_EQ(textOf(DetailKind::Equipment, LineField::Code), "设备编码不存在或不是末级");
    EXPECT_EQ(textOf(DetailKind::Equipment, LineField::Name), "设备名称不存在或不是末级");
    EXPECT_EQ(textOf(DetailKind::Inventory, LineField::Code), "存货编码不存在或所属分类不正确");
    EXPECT_EQ(textOf(DetailKind::Inventory, LineField::Name), "存货名称不存在或所属分类不正确");
    LineTexts line = Good();
    line.code = "X";
    EXPECT_THAT(IdsOf(line, {"X"}), ElementsAre("line.code.duplicate", "line.code.unknown"));
}

TEST_F(LineRulesTest, TheBudgetOfALineHasMoneyAndQuantity) {
    data.lineBudget = {.controlled = true, .money = Money::FromInteger(3000), .quantity = 5};
    data.recordedLines = {.amount = Money::FromInteger(1000), .quantity = 3};
    EXPECT_THAT(IdsOf(Good()), IsEmpty());
    LineTexts line = Good();
    line.amount = "2,000.01";
    EXPECT_THAT(IdsOf(line), ElementsAre("line.budget.amount"));
    EXPECT_EQ(rules.CheckBudget(line)->figures, "预算 3,000.00，已用 1,000.00，可用 2,000.00");
    line = Good();
    line.quantity = "2.01";
    EXPECT_THAT(IdsOf(line), ElementsAre("line.budget.quantity"));
    EXPECT_EQ(rules.CheckBudget(line)->figures, QuantityRoom(5, 3));
    data.lineBudget.quantity = 0;
    EXPECT_THAT(IdsOf(line), IsEmpty());
    data.unreadable = "no budget";
    EXPECT_EQ(rules.CheckBudget(line)->text, "no budget");
}

TEST_F(LineRulesTest, AmongAnEntrysLinesTheLaterOneOfACodeIsRefused) {
    LineTexts second = Good();
    second.code = "M02";
    const std::vector<LineTexts> lines{Good(), second, Good()};
    const auto found = rules.CheckLines(lines);
    ASSERT_EQ(found.size(), 3U);
    EXPECT_THAT(found[0], IsEmpty());
    EXPECT_THAT(found[1], IsEmpty());
    ASSERT_EQ(found[2].size(), 1U);
    EXPECT_EQ(found[2][0].text, "编码不能重复");
}

TEST(DetailLines, BecomeTheStatementsThatReplaceAnEntrysLines) {
    const std::vector<DetailLine> lines{LineOf({" J04 ", "塔吊", "1,234.50", "2.00", "2,469.00"}),
                                        LineOf({"J01", "吊车", "8.00", "0.5", "4.00"})};
    EXPECT_EQ(ReplacementOf(lines).Text(),
              "delete from PM_ItemQCsub where iEleVid=@@@@ insert into "
              "PM_ItemQCsub(iEleVid,cCodeMx,iUprice,iNum,mQC) values(@@@@,'J04',1234.5,2,2469) "
              "insert into PM_ItemQCsub(iEleVid,cCodeMx,iUprice,iNum,mQC) "
              "values(@@@@,'J01',8,0.5,4)");
    EXPECT_EQ(TotalOf(lines).ToText(), "2473");
    EXPECT_EQ(ReplacementOf({}).Text(), "delete from PM_ItemQCsub where iEleVid=@@@@");
}

TEST(DetailLines, AnAmountIsPriceByQuantityInFourDecimals) {
    EXPECT_EQ(AmountOf("1,234.50", "2").ToText(), "2469");
    EXPECT_EQ(AmountOf("0.0001", "0.5").ToText(), "0");
    EXPECT_EQ(AmountOf("", "5").ToText(), "0");
    EXPECT_THROW(AmountOf("-1", "5"), platform::MoneyTextError);
}

}  // namespace
}  // namespace kelvane::entries
