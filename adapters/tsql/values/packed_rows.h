// The rows of a result in one compact block of bytes: a list of 100,000 rows costs little more than
// its texts. Values are kept the way the engine gave them and converted when they are asked for.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/tsql/values/conversion.h"

namespace kelvane::tsql {

class PackedRows {
public:
    void BeginRow() { mRowStarts.push_back(mBytes.size()); }
    // The next field of the row begun last.
    void AppendNull();
    void AppendInteger(std::int64_t value);
    void AppendNumber(double value);
    void AppendText(std::string_view value);

    std::size_t RowCount() const { return mRowStarts.size(); }
    // The field in a row and column that exist.
    Datum At(std::size_t row, int column) const;

private:
    void AppendLength(std::size_t length);
    std::size_t ReadLength(std::size_t& at) const;

    std::string mBytes;
    std::vector<std::size_t> mRowStarts;
};

}  // namespace kelvane::tsql
