#include "adapters/reference/pick_rows.h"

#include <algorithm>
#include <numeric>

namespace kelvane::reference {

using platform::Money;
using platform::RecordSet;
using platform::Value;

namespace {

bool IsNumber(const Value& value) {
    return value.As<std::int64_t>() != nullptr || value.As<double>() != nullptr ||
           value.As<Money>() != nullptr;
}

// Control characters would break the row that the text is shown in.
void AppendCell(std::string& texts, const std::string& cell) {
    std::transform(cell.begin(), cell.end(), std::back_inserter(texts), [](char character) {
        return static_cast<unsigned char>(character) < 0x20 ? ' ' : character;
    });
}

}  // namespace

PickRows::PickRows(RecordSet& source, const std::vector<std::string>& columns) {
    Read(source, columns);
}

PickRows::PickRows(RecordSet& source, int count) {
    std::vector<int> columns(static_cast<std::size_t>(count));
    std::iota(columns.begin(), columns.end(), 0);
    Read(source, columns);
}

template <typename ColumnKey>
void PickRows::Read(RecordSet& source, const std::vector<ColumnKey>& columns) {
    std::vector<bool> hasText(columns.size());
    mNumeric.resize(columns.size());
    for (; !source.EndOfFile(); source.MoveNext()) {
        for (std::size_t column = 0; column < columns.size(); ++column) {
            const Value value = source.Field(columns[column]);
            if (column > 0) mTexts += '\t';
            if (value.IsNull()) continue;
            AppendCell(mTexts, value.ToText());
            const bool number = IsNumber(value);
            hasText[column] = hasText[column] || !number;
            mNumeric[column] = number && !hasText[column];
        }
        mEnds.push_back(mTexts.size());
    }
}

std::string_view PickRows::Cells(std::size_t row) const {
    const std::size_t begin = row == 0 ? 0 : mEnds[row - 1];
    return std::string_view(mTexts).substr(begin, mEnds[row] - begin);
}

std::string_view PickRows::Cell(std::size_t row, int column) const {
    std::string_view rest = Cells(row);
    for (int passed = 0; passed < column; ++passed) rest.remove_prefix(rest.find('\t') + 1);
    return rest.substr(0, rest.find('\t'));
}

}  // namespace kelvane::reference
