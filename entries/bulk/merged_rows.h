// Cells that were merged show one value in the place of several: which rows it was meant for, a
// table does not say.
#pragma once

#include <vector>

#include "entries/bulk/table_reading.h"
#include "platform/table.h"

namespace kelvane::entries {

// A finding for the titles and for each row that one of the `merged` cells reaches into, in a
// column that is read.
void FindMergedRows(const platform::TableReader& reader,
                    const std::vector<platform::CellRange>& merged, BulkTable& table);

}  // namespace kelvane::entries
