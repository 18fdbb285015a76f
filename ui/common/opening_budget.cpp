#include "ui/common/opening_budget.h"

#include "entries/account_master_data.h"
#include "entries/entry_rules.h"
#include "ui/common/findings.h"

namespace kelvane::ui {

std::function<entries::BudgetedEntry()> gCurrentEntry;

bool CheckOpeningBudget(platform::Money amount, std::string& refusal) {
    entries::AccountMasterData masterData;
    const auto refused = entries::EntryRules(masterData).CheckBudget(gCurrentEntry(), amount);
    if (!refused) return true;
    ShowFinding(*refused);
    refusal = RefusalText(*refused);
    return false;
}

}  // namespace kelvane::ui
