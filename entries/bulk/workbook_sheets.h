// What a workbook has beside its sheet of entries: the lines on a sheet of their own, and what
// whoever made it says of its totals.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "entries/bulk/table_reading.h"
#include "platform/money.h"
#include "platform/table.h"

namespace kelvane::entries {

// What a workbook of stored entries notes of itself: which account it is of, and the version of its
// layout.
inline constexpr std::string_view kAccountProperty = "kelvane.account";
inline constexpr std::string_view kLayoutProperty = "kelvane.layout";
inline constexpr std::string_view kLayoutVersion = "1";

// The account that an editable workbook was written from; empty for any other table. Throws
// platform::TableRefused for a layout of a later program, which may mean something else.
std::string OriginOf(platform::TableReader& workbook);

// Control totals; empty where nothing is said.
struct TableTotals {
    std::vector<std::int64_t> rows;
    std::vector<platform::Money> sums;
    std::vector<TableNote> notes;
};

// The sheet of lines beside that of the entries; nothing where there is none, and in a text. Throws
// platform::TableRefused.
std::optional<BulkTable> ReadLineSheet(platform::TableReader& workbook, std::size_t entriesSheet,
                                       const TableReading& how);

// Whether there is anything in a table of lines, be it refused.
bool HasContent(const BulkTable& lines);

// The sheet of totals, unless it is the one of the entries. Throws platform::TableRefused, also for
// a total that is no number.
TableTotals ReadTotals(platform::TableReader& workbook, std::size_t entriesSheet);

}  // namespace kelvane::entries
