#include "ui/common/opening_budget.h"

#include "entries/account_master_data.h"
#include "entries/entry_rules.h"
#include "ui/common/findings.h"

namespace kelvane::ui {

std::function<entries::BudgetedEntry()> gCurrentEntry;

bool CheckOpeningBudget(platform::Money amount, std::string& refusal,
                        std::optional<entries::CheckedBudget>* checked) {
    entries::AccountMasterData masterData;
    const auto refused =
        entries::EntryRules(masterData).CheckBudget(gCurrentEntry(), amount, checked);
    if (!refused) return true;
    ShowFinding(*refused);
    refusal = RefusalText(*refused);
    return false;
}

}  // namespace kelvane::ui
