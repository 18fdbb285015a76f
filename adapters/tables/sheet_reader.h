// Reads one sheet of a workbook row by row.
#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "adapters/tables/date_format.h"
#include "adapters/tables/string_items.h"
#include "adapters/tables/zip_archive.h"
#include "platform/table.h"

namespace kelvane::tables {

// What all sheets of a workbook share.
struct WorkbookContent {
    DateSystem dates = DateSystem::From1900;
    std::vector<bool> dateStyles;
    SharedStrings strings;
};

// As platform::TableReader::Read() says, of the sheet in the part `name`. Throws Refusal.
std::vector<platform::CellRange> ReadSheet(
    ZipArchive& archive, std::string_view name, const WorkbookContent& content,
    const std::function<bool(const platform::TableRow&)>& take);

}  // namespace kelvane::tables
