// The two files of a tie-out, opened and read: the ledger's trial balance, and the mapping that
// says what its accounts stand for.
#pragma once

#include <string>
#include <vector>

#include "entries/ledger/ledger_tables.h"
#include "host/account/account_place.h"

namespace kelvane::host {

// The mapping that is kept for the account (docs/tie-out.md): beside its file, of a database on a
// server among the user's own files. Throws std::runtime_error where that place is not known.
std::string MapFileOf(const AccountPlace& account);

struct LedgerFiles {
    entries::TrialBalance trial;
    entries::LedgerMap map;
    // Of the trial balance, then of the mapping. With findings neither is to be used.
    std::vector<entries::PlacedFinding> findings;
    std::vector<entries::TableNote> notes;
};

// Reads both; the account that is logged in to says which codes numbers may have been. Throws
// platform::TableRefused, platform::DatabaseError, and std::runtime_error when there is no mapping.
LedgerFiles ReadLedgerFiles(const std::string& trial, const std::string& map);

}  // namespace kelvane::host
