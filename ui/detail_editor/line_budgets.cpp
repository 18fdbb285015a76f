#include "ui/detail_editor/line_budgets.h"

#include "data/login_context.h"
#include "data/number_format.h"
#include "data/text_conversion.h"
#include "platform/aside.h"

namespace kelvane::ui {

using entries::LineBudget;
using platform::Value;

namespace {

std::optional<LineBudget> Read(const entries::LineRules& rules, const std::string& code) {
    const platform::Aside aside;
    try {
        return rules.BudgetFor(code);
    } catch (...) {
        data::ReportTrapped("LineBudgets");
        return std::nullopt;
    }
}

}  // namespace

std::string LineBudgets::LeftFor(const entries::LineRules& rules, const entries::LineTexts& line) {
    if (data::Trim(line.code).empty()) return {};
    auto known = mBudgets.find(line.code);
    if (known == mBudgets.end()) {
        known = mBudgets.emplace(line.code, Read(rules, line.code)).first;
    }
    if (!known->second) return {};
    const auto& [budget, others] = *known->second;
    try {
        const auto amount = budget.money - others.amount - data::MoneyOfDisplay(line.amount);
        const double quantity = static_cast<double>(budget.quantity) -
                                static_cast<double>(others.quantity) -
                                data::DoubleOfDisplay(line.quantity);
        return "预算余额 " + data::DisplayOfMoney(amount) + "，数量 " +
               data::NumFormatText(Value(quantity), data::kQuantityKind, true);
    } catch (const std::exception&) {
        // The line holds no number yet.
        return {};
    }
}

}  // namespace kelvane::ui
