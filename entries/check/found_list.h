// FoundList: the findings of a check as they come, each with the column that it stands in.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "entries/check/check.h"
#include "entries/summary/exact_sum.h"
#include "platform/money.h"

namespace kelvane::entries {

class FoundList {
public:
    void Add(std::int64_t identity, Rule rule, std::initializer_list<std::string_view> values);
    // In another column of an entry than the rule's own.
    void AddIn(std::int64_t identity, int column, Rule rule,
               std::initializer_list<std::string_view> values);

    // All of them by identity, then in the order of the catalogue; of one rule by column and text.
    std::vector<CheckFinding> Take();

private:
    std::vector<CheckFinding> mFindings;
};

// An amount as a finding tells it: with grouping, and with all decimals that it has.
inline std::string AmountText(platform::Money amount) {
    return ExactSum(amount).DisplayText();
}
// The same for a quantity, without noise behind its sixth decimal.
std::string QuantityText(double quantity);
// Codes one after the other; of many the first ones.
std::string CodesText(const std::vector<std::string>& codes);

}  // namespace kelvane::entries
