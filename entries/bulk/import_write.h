// Writing what was planned for the rows of a file: in one transaction, which the caller opens.
#pragma once

#include <cstdint>

#include "entries/bulk/import_plan.h"

namespace kelvane::entries {

// NumbersMoved, AccountMoved: another operator took a number, or changed what the plan rests on;
// the transaction has to be rolled back.
enum class WriteOutcome { Done, NumbersMoved, AccountMoved };

// Writes all of `plan` over gConn; rows that need a number get those from `firstIdentity` on,
// which the counter has to give. `masterData`: the account's own, not one that remembers. Errors
// are thrown.
WriteOutcome WriteRows(const ImportPlan& plan, std::int32_t firstIdentity, MasterData& masterData);

}  // namespace kelvane::entries
