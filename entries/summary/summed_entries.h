// The entries that are summed up: of each what it is grouped by, as far as it is asked for, and its
// amount.
#pragma once

#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "entries/summary/summary.h"
#include "platform/money.h"

namespace kelvane::entries {

struct SummedEntry {
    std::int64_t identity = 0;
    std::vector<std::string> keys;  // one for each field, as groups are told apart and sorted by
    platform::Money amount;
};

// By a field's keys what they stand for.
using SummaryValues = std::map<std::string, SummaryValue>;

struct SummedEntries {
    std::vector<SummedEntry> entries;   // by their keys, then by their identities
    std::vector<SummaryValues> values;  // one for each field
};

// Reads all entries of the account, over gConn. Throws ToldFailure for an amount that cannot be
// read, platform::DatabaseError and its kin.
SummedEntries ReadSummedEntries(std::span<const SummaryField> fields);

}  // namespace kelvane::entries
