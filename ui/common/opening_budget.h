// The budget check of the list's current entry, which the detail editor runs too.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "entries/checked_budget.h"
#include "entries/entry.h"
#include "platform/money.h"

namespace kelvane::ui {

// Set by the list of entries; answers with the current row's present texts.
extern std::function<entries::BudgetedEntry()> gCurrentEntry;

// Whether `amount` for the current entry keeps within the budget, the amounts of all other entries
// of its item and element included. Tells the operator when it does not, or when the budget cannot
// be read, and puts what the lower line repeats of it into `refusal`. Over gConn; passes the errors
// of its own reads on.
// `checked` (may be null) as EntryRules::CheckBudget() gives it.
bool CheckOpeningBudget(platform::Money amount, std::string& refusal,
                        std::optional<entries::CheckedBudget>* checked = nullptr);
inline bool CheckOpeningBudget(platform::Money amount) {
    std::string refusal;
    return CheckOpeningBudget(amount, refusal);
}

}  // namespace kelvane::ui
