// The rows of an import that were refused, in a file of the same layout with the reasons beside
// them, to be corrected there and imported.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "entries/bulk/table_reading.h"
#include "entries/bulk/table_shape.h"
#include "platform/table.h"

namespace kelvane::host {

// Why rows were refused, by their numbers in the table. Of one row's reasons a text that stands
// twice is written once.
using Reasons = std::map<int, std::vector<std::string>>;

// A table that was imported; all of it outlives the writing.
struct RefusedTable {
    platform::TableReader& reader;  // is read again
    const entries::TableShape& shape;
    const entries::BulkTable& table;  // what was read of it
    Reasons reasons;
};

// Writes the refused entries with all of their lines, and the entries of refused lines, to `path`:
// a workbook of the sheets 期初 and 明细, or a text, the lines then to a second one beside it,
// which is LinesPathOf(). All columns of the table are written, also those that are not read, and
// behind them 原因; one that is there already gives way. `lines` is null where there are none.
// Returns how many rows were written; no file when that is 0. Throws output::FileFailure and
// platform::TableRefused.
std::size_t WriteRejects(const std::string& path, const RefusedTable& entries,
                         const RefusedTable* lines);

// "rejects.明细.csv" for "rejects.csv".
std::string LinesPathOf(const std::string& path);

}  // namespace kelvane::host
