// Opening amounts against the budget version in control.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "platform/money.h"

namespace kelvane::data {

// The current row of the entry list, on which budget checks work also from other windows.
struct CurrentEntry {
    std::int32_t identity = 0;  // 0: not saved yet
    std::string elementName;
    std::string itemCode;
};

// Set by the entry list; answers with the cells' present texts.
extern std::function<CurrentEntry()> gCurrentEntry;

// Reads the budget of item and element, or of `detailCode` below them when it is not empty, over
// gConn. `controlled` tells whether there is a budget above 0; only then `budget` and, with a
// detail code, `quantity` are written. On any error the answer is False, `error` its description,
// and outputs not reached keep their values.
bool GetItemBudget(std::string_view itemCode, std::string_view elementCode, bool& controlled,
                   platform::Money& budget, std::string& error, std::string_view detailCode,
                   float& quantity);

// Whether `amount` for the current entry keeps within the budget, the amounts of all other entries
// of its item and element included. Tells the operator when it does not, or when the budget cannot
// be read. Over gConn; passes the errors of its own reads on.
bool CheckOpeningBudget(platform::Money amount);

}  // namespace kelvane::data
