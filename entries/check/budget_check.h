// What the check finds of budgets: the version in control against everything that is recorded.
#pragma once

#include "entries/check/found_list.h"
#include "entries/check/master_codes.h"

namespace kelvane::entries {

// All three outlive this.
void CheckBudgets(const AccountContent& content, MasterCodes& codes, FoundList& found);

}  // namespace kelvane::entries
