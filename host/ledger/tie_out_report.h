// How the entries and the ledger agree: for a controller as a table of figures, for programs as
// JSON.
#pragma once

#include <string>
#include <vector>

#include "entries/bulk/table_reading.h"
#include "entries/ledger/tie_out.h"
#include "host/bulk/figure_table.h"

namespace kelvane::host {

struct TieOutReport {
    std::string account;  // fit to be shown
    std::string trialFile;
    std::string mapFile;
    entries::TieOut result;
    // Why nothing was tied out; empty when it was.
    std::vector<entries::PlacedFinding> findings;
    std::vector<entries::TableNote> notes;
};

// A line for each row, then one for each entry and each account that is left over. With `open` only
// those that do not agree.
FigureTable FigureTableOf(const entries::TieOut& result, bool open = false);

// "accounts 3: agreeing 2, differing 1, uncovered entries 0, uncovered accounts 1"
std::string CountsOf(const entries::TieOut& result);

// One object; amounts are texts with four decimals. Without a line break at its end.
std::string JsonOf(const TieOutReport& report);

}  // namespace kelvane::host
