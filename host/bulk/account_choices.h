// What an operator can choose from in an account: the codes and names that a table's lists offer.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace kelvane::host {

// Each in its order, without blank ones and none twice.
struct AccountChoices {
    std::vector<std::string> centers;                  // those that the operator may use
    std::vector<std::string> items;                    // of these centres
    std::array<std::vector<std::string>, 2> keywords;  // likewise
    std::vector<std::string> elements;                 // names
    std::vector<std::string> lines;                    // codes of equipment and of inventory
};

// Of the account that is logged in to, for its operator. Over gEnv; throws platform::DatabaseError.
AccountChoices ChoicesOfAccount();

// What of them is offered in a column of entries (an entries::EntryTableColumn) and of lines
// (LineTableColumn); nothing in most.
std::vector<std::string> ForEntryColumn(const AccountChoices& choices, int column);
std::vector<std::string> ForLineColumn(const AccountChoices& choices, int column);

}  // namespace kelvane::host
