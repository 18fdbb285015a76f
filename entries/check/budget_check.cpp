#include "entries/check/budget_check.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace kelvane::entries {

namespace {

// What is recorded below a budget, and where it was recorded last.
struct Recorded {
    const StoredBudget* budget = nullptr;
    const AccountEntry* entry = nullptr;  // of the greatest identity
    const StoredLine* line = nullptr;     // of line budgets, one of that entry's
    ExactSum amount;
    std::vector<double> quantities;
};

using RecordedByKey = std::unordered_map<std::string, Recorded>;

// Of several lines for the same the first one counts, as in the windows.
RecordedByKey ByKey(const std::vector<StoredBudget>& budgets, MasterCodes& codes, bool ofLines) {
    RecordedByKey recorded;
    for (const StoredBudget& budget : budgets) {
        const std::string key = ofLines ? codes.KeyOf({&budget.item, &budget.element, &budget.code})
                                        : codes.KeyOf({&budget.item, &budget.element});
        recorded.try_emplace(key, Recorded{&budget, nullptr, nullptr, {}, {}});
    }
    return recorded;
}

void CheckEntryBudget(const Recorded& recorded, FoundList& found) {
    const StoredBudget& budget = *recorded.budget;
    if (recorded.entry == nullptr || budget.controls == false) return;
    const AccountEntry& entry = *recorded.entry;
    if (!budget.controls || !budget.money) {
        found.Add(entry.identity, Rule::CheckBudgetValue,
                  {entry.item, entry.element, recorded.amount.DisplayText()});
    } else if (recorded.amount > ExactSum(*budget.money)) {
        found.Add(
            entry.identity, Rule::CheckBudget,
            {entry.item, entry.element, recorded.amount.DisplayText(), AmountText(*budget.money)});
    }
}

// The same whatever order the quantities come in.
double SumOf(std::vector<double> quantities) {
    std::ranges::sort(quantities);
    double sum = 0;
    for (const double quantity : quantities) sum += quantity;
    return sum;
}

void CheckLineBudget(const Recorded& recorded, FoundList& found) {
    const StoredBudget& budget = *recorded.budget;
    if (recorded.line == nullptr || budget.controls == false || budget.quantity == 0.0) return;
    const std::int64_t identity = recorded.entry->identity;
    const std::string& item = recorded.entry->item;
    const std::string& element = recorded.entry->element;
    const std::string& code = recorded.line->code;
    if (!budget.controls || !budget.money || !budget.quantity) {
        found.Add(identity, Rule::CheckLineBudgetValue,
                  {item, element, code, recorded.amount.DisplayText()});
        return;
    }
    if (recorded.amount > ExactSum(*budget.money)) {
        found.Add(identity, Rule::CheckLineBudgetAmount,
                  {item, element, code, recorded.amount.DisplayText(), AmountText(*budget.money)});
    }
    // Single precision, as the editor compares them.
    const double quantity = SumOf(recorded.quantities);
    if (static_cast<float>(quantity) > static_cast<float>(*budget.quantity)) {
        found.Add(identity, Rule::CheckLineBudgetQuantity,
                  {item, element, code, QuantityText(quantity), QuantityText(*budget.quantity)});
    }
}

void Count(const AccountEntry& entry, const StoredLine* line, Recorded& recorded) {
    recorded.entry = &entry;
    recorded.line = line;
    const auto& amount = line == nullptr ? entry.amount : line->amount;
    if (amount) recorded.amount += ExactSum(*amount);
    if (line != nullptr && line->quantity) recorded.quantities.push_back(*line->quantity);
}

std::string VersionsText(const std::vector<std::int64_t>& versions) {
    std::vector<std::string> texts;
    texts.reserve(versions.size());
    for (const std::int64_t version : versions) texts.push_back(std::to_string(version));
    return CodesText(texts);
}

}  // namespace

void CheckBudgets(const AccountContent& content, MasterCodes& codes, FoundList& found) {
    if (content.versions.size() > 1) {
        found.Add(0, Rule::CheckBudgetVersions, {VersionsText(content.versions)});
        return;
    }
    RecordedByKey entries = ByKey(content.budgets, codes, false);
    RecordedByKey lines = ByKey(content.lineBudgets, codes, true);
    auto line = content.lines.begin();
    for (const AccountEntry& entry : content.entries) {
        const auto pair = entries.find(codes.KeyOf({&entry.item, &entry.element}));
        if (pair != entries.end()) Count(entry, nullptr, pair->second);
        while (line != content.lines.end() && line->identity < entry.identity) ++line;
        for (; line != content.lines.end() && line->identity == entry.identity; ++line) {
            const auto code = lines.find(codes.KeyOf({&entry.item, &entry.element, &line->code}));
            if (code != lines.end()) Count(entry, &*line, code->second);
        }
    }
    for (const auto& [key, recorded] : entries) CheckEntryBudget(recorded, found);
    for (const auto& [key, recorded] : lines) CheckLineBudget(recorded, found);
}

}  // namespace kelvane::entries
