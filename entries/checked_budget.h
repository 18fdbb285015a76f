// CheckedBudget: the budget that an amount was checked against before it was saved. Another
// operator may have used it up between the check and the commit.
#pragma once

#include <optional>
#include <string>

#include "entries/entry.h"
#include "entries/stored_entry.h"
#include "platform/money.h"

namespace kelvane::entries {

struct CheckedBudget {
    BudgetedEntry entry;
    std::string elementCode;
    platform::Money amount;
    platform::Money granted;
};

// Whether saving takes more of the budget than `before`, what was stored of the entry until then.
// Nobody overruns a budget by taking as much as before or less: who checked at the same time has
// seen that amount.
bool TakesMore(const CheckedBudget& checked, const std::optional<StoredEntry>& before);

}  // namespace kelvane::entries
