#include "entries/line_rules.h"

#include <algorithm>
#include <exception>

#include "data/text_conversion.h"

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

std::optional<Finding> LineRules::CheckBudget(const LineTexts& line) const {
    const std::string elementCode = mMasterData.ElementCode(mEntry.elementName);
    Budget budget;
    try {
        budget = mMasterData.BudgetOf(mEntry.itemCode, elementCode, line.code);
    } catch (const BudgetUnreadable& failure) {
        return Found(Rule::BudgetFailed, failure.what());
    }
    if (budget.quantity == 0 || !budget.controlled) return std::nullopt;

    const RecordedLines others = mMasterData.LinesOfOthers(mEntry, elementCode, line.code);
    if (budget.money < others.amount + MoneyOfDisplay(line.amount)) {
        return Found(Rule::LineBudgetAmount);
    }
    const auto quantity = static_cast<float>(data::DoubleOfDisplay(line.quantity));
    if (quantity + others.quantity > budget.quantity) return Found(Rule::LineBudgetQuantity);
    return std::nullopt;
}

std::optional<Finding> LineRules::CheckLine(const LineTexts& line,
                                            std::span<const std::string> others) const {
    for (const std::string* number : {&line.price, &line.quantity}) {
        if (auto wrong = CheckNumber(*number)) return wrong;
    }
    if (auto missing = CheckComplete(line)) return missing;
    if (auto twice = CheckCodeOnce(line.code, others)) return twice;
    const auto item = Find(LineField::Code, line.code, line.code);
    if (const auto* unknown = std::get_if<Finding>(&item)) return *unknown;
    return CheckBudget(line);
}

}  // namespace kelvane::entries
