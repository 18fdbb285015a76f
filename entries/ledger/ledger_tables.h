// Reads the two tables of a tie-out, wherever they come from: the mapping, which says what account
// of the ledger stands for which entries, and the ledger's trial balance. What cannot be told for
// certain is refused, as in an import.
#pragma once

#include <vector>

#include "entries/bulk/cell_text.h"
#include "entries/bulk/table_reading.h"
#include "entries/ledger/tie_out.h"
#include "platform/table.h"

namespace kelvane::entries {

// With findings the table is not to be used.
struct MapReading {
    LedgerMap map;
    std::vector<PlacedFinding> findings;
    std::vector<TableNote> notes;
};

struct TrialReading {
    TrialBalance trial;
    std::vector<PlacedFinding> findings;
    std::vector<TableNote> notes;
};

// Where the ledger's account stands in a table of a mapping; its other columns are
// EntryTableColumns, so that `propose` may be AccountProposals::ForEntries() for them.
inline constexpr int kLedgerAccountColumn = kEntryTableColumnCount;

// A column of items, elements or centres that is missing stands for any of them. Lines that no
// entry can get to are told. `propose` may be empty. Throws platform::TableRefused.
MapReading ReadLedgerMap(platform::TableReader& reader, const CodeProposal& propose);

// Each account once, in the order of the table. Lines without an account and totals are left out
// and told. The accounts of `known` are proposed where the table has a number in place of one.
// Throws platform::TableRefused.
TrialReading ReadTrialBalance(platform::TableReader& reader, const std::vector<std::string>& known);

}  // namespace kelvane::entries
