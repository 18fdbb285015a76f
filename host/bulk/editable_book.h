// The entries of an account in a workbook that an operator changes and imports again: what was left
// as it was is not touched then, and what somebody else changed meanwhile is noticed.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/bulk/bulk_sheets.h"
#include "platform/table_file.h"

namespace kelvane::host {

struct EditableBook {
    platform::TableFile file;
    // Entries that no table can name, by their identities: their element is unknown or has another
    // one's name, or they have keywords that the item class does not have.
    std::vector<std::int32_t> leftOut;
};

// Of the account that is logged in to, which is called `account`: all entries as they are stored,
// by item and identity, with their lines. Over gConn and gEnv; throws platform::DatabaseError.
EditableBook MakeEditableBook(const entries::AccountTitles& titles,
                              const entries::AccountChoices& choices, const std::string& account);

}  // namespace kelvane::host
