// The entries behind a row of a summary, as texts to be looked at.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "entries/entry.h"

namespace kelvane::entries {

// Those of `identities`, which are ascending, that the account has now, in their order; the names
// of items and elements beside them. Amounts have all their decimals, a date that cannot be read is
// shown as it is stored. Over gConn, with three statements. Throws platform::DatabaseError and its
// kin.
std::vector<EntryTexts> ReadEntryTexts(std::span<const std::int64_t> identities);

}  // namespace kelvane::entries
