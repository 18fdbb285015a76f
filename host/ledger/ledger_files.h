// The two files of a tie-out, opened and read: the ledger's trial balance, and the mapping that
// says what its accounts stand for.
#pragma once

#include <string>

#include "entries/ledger/ledger_reading.h"

namespace kelvane::host {

// As entries::ReadLedgerTables(). Throws std::runtime_error besides when there is no mapping.
entries::LedgerTables ReadLedgerFiles(const std::string& trial, const std::string& map);

}  // namespace kelvane::host
