// StoredEntry: what the account held of an entry when a save came to write it, in the texts that a
// list of entries shows; and whether that is what a list has shown. What is stored may read back
// otherwise than it was written without anybody having changed it: that is no difference.
#pragma once

#include <string>
#include <string_view>

#include "entries/entry.h"
#include "platform/database.h"
#include "platform/money.h"
#include "platform/value.h"

namespace kelvane::entries {

struct StoredEntry {
    EntryTexts texts;  // the identity, the item's and the element's name stay empty
    std::string elementCode;
    platform::Money amount;  // 0 where it cannot be read
};

// A date and an amount as a list shows them. Throw what Value throws where a value is none.
std::string DateCell(const platform::Value& date);
std::string AmountCell(const platform::Value& amount);

// The entry that `row` stands on, of all columns of PM_ItemQC. A value that cannot be read as its
// column's kind keeps its text.
StoredEntry StoredEntryOf(const platform::RecordSet& row);

// Whether a text that was shown is the stored one: blanks at the ends do not count, nor does a
// letter that a server's code page does not have and keeps as a question mark.
bool IsSameText(std::string_view shown, std::string_view stored);

// Whether an entry reads as it was shown, its element aside. Amounts are compared as far as they
// are shown.
bool IsAsShown(const EntryTexts& shown, const StoredEntry& stored);

}  // namespace kelvane::entries
