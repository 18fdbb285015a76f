#include "entries/ledger/tie_out_texts.h"

#include <gtest/gtest.h>

#include <numeric>

namespace kelvane::entries {
namespace {

ExactSum Sum(const char* amount) {
    return ExactSum(platform::Money::FromText(amount));
}

std::string Shown(const TieOutLine& line) {
    std::string shown;
    for (const std::string& text : line.texts) shown += text + "|";
    return shown + std::to_string(static_cast<int>(line.outcome)) + " " + std::to_string(line.at);
}

TEST(TieOutTexts, ALineForEachRowThenWhatIsLeftOver) {
    TieOut result;
    result.rows.push_back({.account = "1604",
                           .name = "在建",
                           .ledger = Sum("1234.5"),
                           .entriesSum = Sum("1234.5"),
                           .identities = {1, 2},
                           .difference = {},
                           .candidates = {}});
    result.rows.push_back({.account = "1605",
                           .name = "",
                           .ledger = Sum("0"),
                           .entriesSum = Sum("-0.0001"),
                           .identities = {3},
                           .difference = Sum("0.0001"),
                           .candidates = {3}});
    result.rows.push_back({.account = "1606",
                           .name = "",
                           .ledger = {},
                           .entriesSum = Sum("5"),
                           .identities = {4},
                           .difference = Sum("-5"),
                           .candidates = {4, 7}});
    result.unmapped.push_back({7, "X01", "人工费", "D02", Sum("5")});
    result.unmappedAccounts.push_back({"1001", "现金", Sum("88.5")});
    const auto lines = TieOutLines(result);
    ASSERT_EQ(lines.size(), 5U);
    EXPECT_EQ(Shown(lines[0]), "1604|在建|相符||1,234.50|2|1,234.50|0.00|0 0");
    EXPECT_EQ(Shown(lines[1]), "1605||不符|3|0.00|1|-0.0001|0.0001|1 1");
    EXPECT_EQ(Shown(lines[2]), "1606||总账没有此科目|4、7||1|5.00|-5.00|2 2");
    EXPECT_EQ(Shown(lines[3]), "|项目 X01，要素 人工费，责任中心 D02|未对应期初|7||1|5.00||3 0");
    EXPECT_EQ(Shown(lines[4]), "1001|现金|未对应科目||88.50||||4 0");
    for (const TieOutLine& line : lines) EXPECT_EQ(line.texts.size(), TieOutTitles().size());
}

TEST(TieOutTexts, OfManyHintsTheFirstTenAreNamed) {
    TieOut result;
    TieOutRow& row = result.rows.emplace_back();
    row.ledger = ExactSum();
    row.difference = Sum("1");
    row.candidates.resize(10);
    std::iota(row.candidates.begin(), row.candidates.end(), 1);
    EXPECT_EQ(TieOutLines(result)[0].texts[3], "1、2、3、4、5、6、7、8、9、10");
    row.candidates.push_back(11);
    EXPECT_EQ(TieOutLines(result)[0].texts[3], "1、2、3、4、5、6、7、8、9、10 等 11 笔");
}

}  // namespace
}  // namespace kelvane::entries
