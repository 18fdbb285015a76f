// What a workbook's cells look like, as far as it says what they are: dates.
#pragma once

#include <string_view>
#include <vector>

#include "adapters/tables/zip_archive.h"

namespace kelvane::tables {

// For each style, by its number, whether it shows dates. Throws Refusal.
std::vector<bool> ReadDateStyles(ZipArchive& archive, std::string_view name);

}  // namespace kelvane::tables
