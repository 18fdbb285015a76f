#include "entries/line_rules.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "data/text_conversion.h"
#include "entries/budget_room.h"

namespace kelvane::entries {

using data::MoneyOfDisplay;

namespace {

Rule UnknownItem(DetailKind kind, LineField by) {
    const bool byCode = by == LineField::Code;
    if (kind == DetailKind::Equipment) {
        return byCode ? Rule::EquipmentCodeUnknown : Rule::EquipmentNameUnknown;
    }
    return byCode ? Rule::InventoryCodeUnknown : Rule::InventoryNameUnknown;
}

}  // namespace

std::optional<Finding> LineRules::CheckNumber(const std::string& text) {
    try {
        MoneyOfDisplay(text);
        return std::nullopt;
    } catch (const std::exception&) {
        return Found(Rule::LineNumber);
    }
}

std::optional<Finding> LineRules::CheckCodeOnce(const std::string& code,
                                                std::span<const std::string> others) {
    if (std::ranges::find(others, code) == others.end()) return std::nullopt;
    return Found(Rule::LineCodeDuplicate);
}

std::variant<LineItem, Finding> LineRules::Find(LineField by, const std::string& sought,
                                                const std::string& ownCode) const {
    auto item = mMasterData.FindLineItem(mKind, by, sought, mEntry.elementName, ownCode);
    if (!item) return Found(UnknownItem(mKind, by));
    return *std::move(item);
}

std::optional<Finding> LineRules::CheckComplete(const LineTexts& line) {
    if (data::Trim(line.code).empty()) return Found(Rule::LineCodeEmpty);
    if (data::Trim(line.name).empty()) return Found(Rule::LineNameEmpty);
    if (MoneyOfDisplay(line.price).IsZero()) return Found(Rule::LinePriceZero);
    if (MoneyOfDisplay(line.quantity).IsZero()) return Found(Rule::LineQuantityZero);
    return std::nullopt;
}

std::optional<LineBudget> LineRules::BudgetFor(const std::string& code) const {
    const std::string elementCode = mMasterData.ElementCode(mEntry.elementName);
    const Budget budget = mMasterData.BudgetOf(mEntry.itemCode, elementCode, code);
    if (budget.quantity == 0 || !budget.controlled) return std::nullopt;
    return LineBudget{budget, mMasterData.LinesOfOthers(mEntry, elementCode, code)};
}

std::optional<Finding> LineRules::CheckBudget(const LineTexts& line) const {
    std::optional<LineBudget> controlling;
    try {
        controlling = BudgetFor(line.code);
    } catch (const BudgetUnreadable& failure) {
        return Found(Rule::BudgetFailed, failure.what());
    }
    if (!controlling) return std::nullopt;
    const auto& [budget, others] = *controlling;
    if (budget.money < others.amount + MoneyOfDisplay(line.amount)) {
        Finding exceeded = Found(Rule::LineBudgetAmount);
        exceeded.figures = MoneyRoom(budget.money, others.amount);
        return exceeded;
    }
    const auto quantity = static_cast<float>(data::DoubleOfDisplay(line.quantity));
    if (quantity + others.quantity <= budget.quantity) return std::nullopt;
    Finding exceeded = Found(Rule::LineBudgetQuantity);
    exceeded.figures = QuantityRoom(budget.quantity, others.quantity);
    return exceeded;
}

Findings LineRules::CheckLine(const LineTexts& line, std::span<const std::string> others) const {
    Findings found;
    const auto checkNumber = [&](const std::string& number, LineColumn column, Rule whenZero) {
        if (auto wrong = CheckNumber(number)) {
            wrong->column = static_cast<int>(column);
            found.push_back(*std::move(wrong));
        } else if (MoneyOfDisplay(number).IsZero()) {
            found.push_back(Found(whenZero));
        }
    };
    if (data::Trim(line.code).empty()) {
        found.push_back(Found(Rule::LineCodeEmpty));
    } else {
        if (auto twice = CheckCodeOnce(line.code, others)) found.push_back(*std::move(twice));
        const auto item = Find(LineField::Code, line.code, line.code);
        if (const auto* unknown = std::get_if<Finding>(&item)) found.push_back(*unknown);
        if (data::Trim(line.name).empty()) found.push_back(Found(Rule::LineNameEmpty));
    }
    checkNumber(line.price, LineColumn::Price, Rule::LinePriceZero);
    checkNumber(line.quantity, LineColumn::Quantity, Rule::LineQuantityZero);
    if (!found.empty()) return found;
    if (auto beyond = CheckBudget(line)) found.push_back(*std::move(beyond));
    return found;
}

std::vector<Findings> LineRules::CheckLines(std::span<const LineTexts> lines) const {
    std::vector<Findings> found;
    std::vector<std::string> codes;
    for (const LineTexts& line : lines) {
        found.push_back(CheckLine(line, codes));
        codes.push_back(line.code);
    }
    return found;
}

}  // namespace kelvane::entries
