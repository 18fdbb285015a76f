#include "entries/entry_rules.h"

#include "data/date_text.h"
#include "data/number_format.h"
#include "data/text_conversion.h"
#include "entries/budget_room.h"

namespace kelvane::entries {

using platform::DateTime;
using platform::Money;
using platform::Value;

namespace {

constexpr std::string_view kFirstDate = "1900.01.01";
constexpr std::string_view kLastDate = "3000.01.01";

}  // namespace

std::optional<Finding> EntryRules::CheckDate(std::string& text) const {
    if (text.empty()) return Found(Rule::DateEmpty);
    std::string typed = text;
    const std::string date = data::DateTextOrEmpty(typed);
    if (date.empty()) return Found(Rule::DateInvalid);
    const DateTime bound = mMasterData.OpeningBound();
    if (date >= bound.DateText('.')) return Found(Rule::DateBound, bound.DateText('-'));
    if (date < kFirstDate || date > kLastDate) return Found(Rule::DateRange);
    text = data::DateTextToDate(date).DateText('-');
    return std::nullopt;
}

std::optional<Finding> EntryRules::CheckCenter(const std::string& text) const {
    if (text.empty()) return Found(Rule::CenterEmpty);
    if (!mMasterData.CenterAllowed(text)) return Found(Rule::CenterUnknown);
    return std::nullopt;
}

std::optional<Finding> EntryRules::CheckItem(const EntryTexts& entry) const {
    const std::string& item = entry[kItemColumn];
    if (item.empty()) return Found(Rule::ItemEmpty);
    if (!mMasterData.ItemInCenter(item, entry[kCenterColumn])) return Found(Rule::ItemCenter);
    if (mMasterData.ItemSettled(item, entry[kKey1Column], entry[kKey2Column])) {
        return Found(Rule::ItemSettled);
    }
    return std::nullopt;
}

std::optional<Finding> EntryRules::CheckElementGiven(const std::string& text) {
    if (text.empty()) return Found(Rule::ElementEmpty);
    return std::nullopt;
}

std::optional<Finding> EntryRules::CheckElement(const std::string& text,
                                                std::int16_t& detail) const {
    if (auto missing = CheckElementGiven(text)) return missing;
    const auto known = mMasterData.ElementDetail(text);
    if (!known) return Found(Rule::ElementUnknown);
    detail = *known;
    return std::nullopt;
}

std::optional<Finding> EntryRules::CheckDigest(const std::string& text) {
    if (text.empty()) return Found(Rule::DigestEmpty);
    return std::nullopt;
}

std::optional<Finding> EntryRules::CheckAmount(std::string& text) {
    // Opening an empty amount with the blank key leaves a blank in it.
    const bool singleBlank = text == " ";
    if (text.empty()) return Found(Rule::AmountEmpty);
    if (!singleBlank && !data::IsNumericText(text)) return Found(Rule::AmountNumber);
    text = singleBlank ? "" : data::NumFormatText(Value(text), data::kMoneyKind, true);
    if (text.empty()) text = "0.00";
    return std::nullopt;
}

std::optional<Finding> EntryRules::CheckBudget(const BudgetedEntry& entry, Money amount,
                                               std::optional<CheckedBudget>* checked) const {
    const std::string elementCode = mMasterData.ElementCode(entry.elementName);
    Budget budget;
    try {
        budget = mMasterData.BudgetOf(entry.itemCode, elementCode, "");
    } catch (const BudgetUnreadable& failure) {
        return Found(Rule::BudgetFailed, failure.what());
    }
    if (!budget.controlled) return std::nullopt;
    const Money recorded = mMasterData.RecordedByOthers(entry, elementCode);
    if (recorded + amount <= budget.money) {
        if (checked != nullptr) *checked = {entry, elementCode, amount, budget.money};
        return std::nullopt;
    }
    Finding exceeded = Found(Rule::BudgetExceeded);
    exceeded.figures = MoneyRoom(budget.money, recorded);
    return exceeded;
}

std::string EntryRules::FindOverrun(const CheckedBudget& checked) const try {
    const Money recorded = mMasterData.RecordedByOthers(checked.entry, checked.elementCode);
    if (recorded + checked.amount <= checked.granted) return {};
    return MoneyRoom(checked.granted, recorded);
} catch (const platform::MoneyTextError&) {
    // The others come to less than 0, which leaves more room than there was.
    return {};
}

std::optional<Finding> EntryRules::CheckDeletion(const EntryTexts& entry) const {
    if (!mMasterData.ItemSettled(entry[kItemColumn], entry[kKey1Column], entry[kKey2Column])) {
        return std::nullopt;
    }
    return Found(Rule::ItemSettledDeletion);
}

Findings EntryRules::CheckEntry(EntryTexts& entry, std::int16_t& detail) const {
    Findings found;
    const auto accepts = [&](std::optional<Finding> finding) {
        if (!finding) return true;
        found.push_back(*std::move(finding));
        return false;
    };
    for (std::string& cell : entry.cells) {
        if (cell != " ") cell = data::Trim(cell);
    }
    accepts(CheckDate(entry[kDateColumn]));
    const bool center = accepts(CheckCenter(entry[kCenterColumn]));
    const bool item = center && accepts(CheckItem(entry));
    const bool element = accepts(CheckElement(entry[kElementColumn], detail));
    accepts(CheckDigest(entry[kDigestColumn]));
    if (!accepts(CheckAmount(entry[kAmountColumn]))) return found;
    try {
        const Money amount = Money::FromText(entry[kAmountColumn]);
        if (item && element) {
            accepts(
                CheckBudget({entry.identity, entry[kItemColumn], entry[kElementColumn]}, amount));
        }
    } catch (const platform::MoneyOverflow&) {
        // By itself, or together with what the budget has been used for.
        accepts(Found(Rule::AmountRange));
    } catch (const platform::MoneyTextError&) {
        // A sum below zero is no amount that the budget could be compared with.
        accepts(Found(Rule::BudgetFailed, "已录入的期初合计小于 0，不能检查预算"));
    }
    return found;
}

}  // namespace kelvane::entries
