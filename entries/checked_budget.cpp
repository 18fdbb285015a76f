#include "entries/checked_budget.h"

#include "platform/letter_case.h"

namespace kelvane::entries {

using platform::ComparedText;
using platform::Money;

bool TakesMore(const CheckedBudget& checked, const std::optional<StoredEntry>& before) {
    const bool sameBudget =
        before &&
        ComparedText(before->texts[kItemColumn]) == ComparedText(checked.entry.itemCode) &&
        ComparedText(before->elementCode) == ComparedText(checked.elementCode);
    return checked.amount > (sameBudget ? before->amount : Money());
}

}  // namespace kelvane::entries
