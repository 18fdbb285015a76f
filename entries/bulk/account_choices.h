// What an operator can choose from in an account: the codes and names that a table's lists offer.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "entries/bulk/cell_text.h"

namespace kelvane::entries {

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

// What of them is offered in a column of entries (an EntryTableColumn) and of lines
// (LineTableColumn); nothing in most.
std::vector<std::string> ForEntryColumn(const AccountChoices& choices, int column);
std::vector<std::string> ForLineColumn(const AccountChoices& choices, int column);

// Which of the account's codes a number may have been. The account is asked when the first number
// stands in place of one.
class AccountProposals {
public:
    // What these return does not outlive the object.
    CodeProposal ForEntries();
    CodeProposal ForLines();

private:
    const AccountChoices& Choices();

    std::optional<AccountChoices> mChoices;
};

}  // namespace kelvane::entries
