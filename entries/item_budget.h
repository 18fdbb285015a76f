// Budgets of the version in control.
#pragma once

#include <string>
#include <string_view>

#include "platform/money.h"

namespace kelvane::entries {

// Reads the budget of item and element, or of `detailCode` below them when it is not empty, over
// gConn. `controlled` tells whether there is a budget above 0; only then `budget` and, with a
// detail code, `quantity` are written. On any error the answer is False, `error` its description,
// and outputs not reached keep their values.
bool GetItemBudget(std::string_view itemCode, std::string_view elementCode, bool& controlled,
                   platform::Money& budget, std::string& error, std::string_view detailCode,
                   float& quantity);

}  // namespace kelvane::entries
