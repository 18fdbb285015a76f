// The entries behind a row of a summary, as texts to be looked at.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "entries/entry.h"

namespace kelvane::entries {

struct ShownEntry {
    std::int64_t identity = 0;
    EntryTexts texts;  // without the identity
};

// Those of `identities`, which are ascending, that the account has now, in their order; the names
// of items and elements beside them. Amounts have all their decimals; what cannot be read says so.
// Over gConn in one snapshot, with three statements. Throws platform::DatabaseError and its kin.
std::vector<ShownEntry> ReadShownEntries(std::span<const std::int64_t> identities);

}  // namespace kelvane::entries
