// An opening entry without a grid or a screen: its values, and its texts as an operator typed them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/date_time.h"
#include "platform/money.h"

namespace kelvane::entries {

// An entry's columns, numbered as in the list of entries; findings name them.
enum EntryColumn {
    kDateColumn = 1,
    kCenterColumn = 2,
    kItemColumn = 3,
    kItemNameColumn = 4,
    kKey1Column = 5,
    kKey2Column = 6,
    kElementColumn = 7,
    kDigestColumn = 8,
    kAmountColumn = 9,
    kEntryColumnCount = 10,
};

// The texts of an entry by column; column 0 stays empty.
struct EntryTexts {
    std::int32_t identity = 0;  // 0: never saved
    std::array<std::string, kEntryColumnCount> cells;

    std::string& operator[](EntryColumn column) { return cells[static_cast<std::size_t>(column)]; }
    const std::string& operator[](EntryColumn column) const {
        return cells[static_cast<std::size_t>(column)];
    }
};

struct Entry {
    std::int32_t identity = 0;  // 0: never saved
    platform::DateTime date;
    std::string centerCode;
    std::string itemCode;
    std::string key1;
    std::string key2;
    std::string elementName;
    std::string digest;
    platform::Money amount;
};

// The values of texts that passed their checks: a text that is no date is the null date. Throws
// platform::MoneyTextError and platform::MoneyOverflow.
Entry EntryOf(const EntryTexts& texts);

// The entry that an amount or a detail line belongs to, as the budget sees it.
struct BudgetedEntry {
    std::int32_t identity = 0;
    std::string itemCode;
    std::string elementName;
};

}  // namespace kelvane::entries
