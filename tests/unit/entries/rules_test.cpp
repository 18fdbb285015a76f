#include "entries/rules.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>

#include "entries/entry.h"

namespace kelvane::entries {
namespace {

// The ids are what reports, files and other programs know a rule by: they never change.
TEST(Rules, HaveTheseIds) {
    const std::set<std::string_view> expected{
        "amount.empty",        "amount.number",    "budget.exceeded",     "budget.failed",
        "cell.code.number",    "cell.date",        "cell.error",          "cell.formula",
        "cell.merged",         "file.column",      "file.hidden",         "center.empty",
        "center.unknown",      "counter.missing",  "date.bound",          "date.empty",
        "date.invalid",        "date.range",       "digest.empty",        "element.empty",
        "element.unknown",     "entry.gone",       "identity.exhausted",  "item.center",
        "item.empty",          "item.settled",     "line.budget.amount",  "line.budget.quantity",
        "line.code.duplicate", "line.code.empty",  "line.code.unknown",   "line.name.empty",
        "line.number",         "line.price.zero",  "line.quantity.zero",  "list.locked",
        "file.again",          "file.total",       "key.mismatch",        "item.name",
        "amount.range",        "amount.lines",     "text.quote",          "text.length",
        "entry.changed",       "entry.duplicate",  "line.entry",          "check.item",
        "check.center",        "check.element",    "check.code",          "check.lines.sum",
        "check.lines.orphan",  "check.lines.kind", "check.lines.product", "check.counter",
        "check.value",         "check.budget",     "check.line.budget",   "check.date",
        "check.settled",       "check.zero",       "check.keys",          "check.authority",
        "check.twin",          "check.blank"};
    std::set<std::string_view> declared;
    for (const DeclaredRule& rule : DeclaredRules()) declared.insert(rule.id);
    EXPECT_EQ(declared, expected);
}

TEST(Rules, SayEachSomethingOfItsOwnUnderOneId) {
    std::set<std::pair<std::string_view, std::string_view>> seen;
    for (const DeclaredRule& rule : DeclaredRules()) {
        EXPECT_TRUE(seen.insert({rule.id, rule.text}).second) << rule.id << " " << rule.text;
        EXPECT_FALSE(rule.caption.empty()) << rule.id;
        EXPECT_EQ(rule.text.empty(), rule.rule == Rule::BudgetFailed) << rule.id;
        EXPECT_EQ(&Declared(rule.rule), &rule);
    }
}

TEST(Rules, AFindingCarriesWhatItsRuleDeclares) {
    const Finding finding = Found(Rule::ItemSettled);
    EXPECT_EQ(finding.id, "item.settled");
    EXPECT_EQ(finding.column, kItemColumn);
    EXPECT_EQ(finding.text, "项目已经完工结算，不能在启用后对该项目录入期初！");
    EXPECT_EQ(finding.caption, "提示");
    EXPECT_EQ(finding.icon, platform::MessageIcon::Information);
}

TEST(Rules, AValueStandsInItsPlace) {
    EXPECT_EQ(Found(Rule::DateBound, "2004-07-01").text,
              "期初录入时间应在本年度帐套启用期间第一天(2004-07-01)之前");
    EXPECT_EQ(Found(Rule::BudgetFailed, "no table").text, "no table");
    EXPECT_EQ(Found(Rule::DateEmpty, "ignored").text, "日期不能为空");
}

}  // namespace
}  // namespace kelvane::entries
