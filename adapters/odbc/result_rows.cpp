#include "adapters/odbc/result_rows.h"

#include <cstdint>
#include <string>

#include "adapters/tsql/values/value_conversion.h"

namespace kelvane::odbc {

void ResultRows::Append(const tsql::Datum& value) {
    if (const auto* integer = std::get_if<std::int64_t>(&value)) {
        AppendInteger(*integer);
    } else if (const auto* number = std::get_if<double>(&value)) {
        AppendNumber(*number);
    } else if (const auto* text = std::get_if<std::string>(&value)) {
        AppendText(*text);
    } else {
        AppendNull();
    }
}

platform::Value ResultRows::ValueAt(std::size_t row, int column) const {
    return tsql::ToValue(At(row, column), columns[static_cast<std::size_t>(column)].type);
}

}  // namespace kelvane::odbc
