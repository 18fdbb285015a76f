// Where a cell stands, as spreadsheets write it: "C7".
#pragma once

#include <string>
#include <string_view>

#include "platform/table.h"

namespace kelvane::tables {

// "C" for 3.
std::string ColumnName(int column);

struct CellReference {
    int row = 0;
    int column = 0;
};

// Throws Refusal when `text` names no cell of a sheet.
CellReference ReadReference(std::string_view text);

// "A1:C7", or one cell alone. Throws Refusal.
platform::CellRange ReadRange(std::string_view text);

}  // namespace kelvane::tables
