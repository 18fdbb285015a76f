// A workbook (.xlsx) as tables: its sheets, by the names that an operator sees.
#pragma once

#include <memory>
#include <string>

#include "adapters/tables/byte_source.h"
#include "platform/table.h"

namespace kelvane::tables {

// Throws Refusal when it is none, is damaged, is encrypted or is beyond the limits.
std::unique_ptr<platform::TableReader> ReadWorkbook(std::unique_ptr<ByteSource> source,
                                                    std::string name);

}  // namespace kelvane::tables
