// What an account itself names of a table's titles.
#pragma once

#include <string>
#include <vector>

#include "entries/bulk/table_shape.h"

namespace kelvane::entries {

// What the account itself names: how its windows call an item's name, and the keyword fields of its
// item class, at most two.
struct AccountTitles {
    std::string itemName;
    std::vector<KeywordField> keywords;
};

// Of the account that is logged in to. Over gEnv; throws platform::DatabaseError.
AccountTitles TitlesOfAccount();

}  // namespace kelvane::entries
