// A result of a server, read whole when it comes: a connection has one result at a time.
#pragma once

#include <cstddef>
#include <vector>

#include "adapters/tsql/translation.h"
#include "adapters/tsql/values/packed_rows.h"
#include "platform/value.h"

namespace kelvane::odbc {

class ResultRows : public tsql::PackedRows {
public:
    // The columns the rows have, hidden ones behind the others; an empty name is an unnamed column.
    std::vector<tsql::ResultColumn> columns;
    int hiddenColumns = 0;
    // False: the text gave no result with columns.
    bool hasResult = false;
    // Rows changed by the last statement that changed any; -1 when the driver does not say.
    long changedRows = -1;

    // The next field of the row begun last: amounts as their text, dates as
    // "yyyy-mm-dd hh:mm:ss.mmm".
    void Append(const tsql::Datum& value);

    // The field in a row and column that exist, as the library takes it. Throws DatabaseError when
    // it is no value of its type.
    platform::Value ValueAt(std::size_t row, int column) const;
};

}  // namespace kelvane::odbc
