// The rows of a result in one compact block of bytes, read whole when the result comes: a
// connection has one result at a time, and a list of 100,000 rows costs little more than its texts.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "adapters/tsql/conversion.h"
#include "adapters/tsql/translation.h"
#include "platform/value.h"

namespace kelvane::odbc {

class ResultRows {
public:
    // The columns the rows have, hidden ones behind the others; an empty name is an unnamed column.
    std::vector<tsql::ResultColumn> columns;
    int hiddenColumns = 0;
    // False: the text gave no result with columns.
    bool hasResult = false;
    // Rows changed by the last statement that changed any; -1 when the driver does not say.
    long changedRows = -1;

    std::size_t RowCount() const { return mRowStarts.size(); }

    void BeginRow() { mRowStarts.push_back(mBytes.size()); }
    // The next field of the row begun last.
    void Append(const tsql::Datum& value);
    void AppendText(std::string_view text);

    // The field in a row and column that exist, as the server gave it: amounts as their text, dates
    // as "yyyy-mm-dd hh:mm:ss.mmm".
    tsql::Datum At(std::size_t row, int column) const;
    // The same as the library takes it. Throws DatabaseError when it is no value of its type.
    platform::Value ValueAt(std::size_t row, int column) const;

private:
    void AppendLength(std::size_t length);
    std::size_t ReadLength(std::size_t& at) const;

    std::string mBytes;
    std::vector<std::size_t> mRowStarts;
};

}  // namespace kelvane::odbc
