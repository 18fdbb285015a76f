// The two tables of a tie-out read together: each knows accounts that the other has as numbers.
#pragma once

#include <vector>

#include "entries/ledger/ledger_tables.h"

namespace kelvane::entries {

struct LedgerTables {
    TrialBalance trial;
    LedgerMap map;
    // Of the trial balance, then of the mapping. With findings neither is to be used.
    std::vector<PlacedFinding> findings;
    std::vector<TableNote> notes;
};

// Reads both; the account that is logged in to says which codes numbers may have been. Over gEnv.
// Throws platform::TableRefused, platform::DatabaseError.
LedgerTables ReadLedgerTables(platform::TableReader& trial, platform::TableReader& map);

}  // namespace kelvane::entries
