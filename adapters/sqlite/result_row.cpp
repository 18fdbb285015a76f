#include "adapters/sqlite/result_row.h"

#include <sqlite3.h>

#include <cstddef>
#include <string_view>

namespace kelvane::sqlite {

void AppendRow(tsql::PackedRows& rows, const Statement& statement, int columns) {
    rows.BeginRow();
    for (int column = 0; column < columns; ++column) {
        sqlite3_stmt* handle = statement.Handle();
        switch (sqlite3_column_type(handle, column)) {
            case SQLITE_INTEGER:
                rows.AppendInteger(sqlite3_column_int64(handle, column));
                break;
            case SQLITE_FLOAT:
                rows.AppendNumber(sqlite3_column_double(handle, column));
                break;
            case SQLITE_NULL:
                rows.AppendNull();
                break;
            default: {
                const auto* text =
                    reinterpret_cast<const char*>(sqlite3_column_text(handle, column));
                const auto length = static_cast<std::size_t>(sqlite3_column_bytes(handle, column));
                rows.AppendText(length > 0 ? std::string_view(text, length) : std::string_view());
            }
        }
    }
}

}  // namespace kelvane::sqlite
