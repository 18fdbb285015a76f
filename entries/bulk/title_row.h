// Finds the row of a table in which its titles stand, and what stands there beside them.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "entries/bulk/table_reading.h"
#include "entries/bulk/table_shape.h"
#include "platform/table.h"

namespace kelvane::entries {

// In which row titles are at the latest.
inline constexpr int kLastTitleRow = 20;

bool IsTitleRow(const platform::TableRow& row, const TableShape& shape);

// The two titles by which the row is known, for a message.
std::string TitleMarks(const TableShape& shape);

// Takes the columns' places, titles that stand twice or are missing and titles of other columns
// from `row` into `table`. False when the table cannot be read so.
bool TakeTitles(const platform::TableReader& reader, const platform::TableRow& row,
                const TableShape& shape, BulkTable& table);

// The sheet to be read, the first when none has the titles; one that is `taken` is passed over.
// Throws as ReadBulkTable().
std::size_t ChooseSheet(platform::TableReader& reader, const TableShape& shape,
                        const std::string& named, std::optional<std::size_t> taken = {});

}  // namespace kelvane::entries
