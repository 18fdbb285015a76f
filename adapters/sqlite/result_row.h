// The rows of a result of the embedded engine.
#pragma once

#include "adapters/sqlite/statement.h"
#include "adapters/tsql/values/packed_rows.h"

namespace kelvane::sqlite {

// Appends the row that `statement` stands on.
void AppendRow(tsql::PackedRows& rows, const Statement& statement, int columns);

}  // namespace kelvane::sqlite
