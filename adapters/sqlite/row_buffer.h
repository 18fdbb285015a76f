// The rows of a result in one compact block of bytes: a list of 100,000 rows costs little more than
// its texts. Values are kept the way the engine held them and converted when they are asked for.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <string>
#include <vector>

#include "adapters/sqlite/statement.h"
#include "adapters/tsql/conversion.h"

namespace kelvane::sqlite {

class RowBuffer {
public:
    // Appends the row that `statement` stands on.
    void Append(const Statement& statement, int columns);

    std::size_t RowCount() const { return mRowStarts.size(); }
    // The value in a row and column that exist.
    tsql::Datum At(std::size_t row, int column) const;

private:
    void AppendLength(std::size_t length);
    std::size_t ReadLength(std::size_t& at) const;
    std::size_t Skip(std::size_t at) const;

    std::string mBytes;
    std::vector<std::size_t> mRowStarts;
};

}  // namespace kelvane::sqlite
