#include "adapters/odbc/result_rows.h"

#include <cstdint>
#include <cstring>

#include "adapters/tsql/value_conversion.h"

namespace kelvane::odbc {

namespace {

constexpr char kNull = 0;
constexpr char kInteger = 1;
constexpr char kNumber = 2;
constexpr char kText = 3;

template <typename Plain>
void AppendPlain(std::string& bytes, char tag, Plain value) {
    char buffer[sizeof value];
    std::memcpy(buffer, &value, sizeof value);
    bytes += tag;
    bytes.append(buffer, sizeof value);
}

template <typename Plain>
Plain ReadPlain(const std::string& bytes, std::size_t at) {
    Plain value;
    std::memcpy(&value, bytes.data() + at, sizeof value);
    return value;
}

}  // namespace

void ResultRows::AppendLength(std::size_t length) {
    for (; length >= 0x80; length >>= 7) mBytes += static_cast<char>((length & 0x7F) | 0x80);
    mBytes += static_cast<char>(length);
}

std::size_t ResultRows::ReadLength(std::size_t& at) const {
    std::size_t length = 0;
    for (unsigned shift = 0;; shift += 7) {
        const auto byte = static_cast<unsigned char>(mBytes[at++]);
        length |= std::size_t{byte & 0x7FU} << shift;
        if (byte < 0x80) return length;
    }
}

void ResultRows::AppendText(std::string_view text) {
    mBytes += kText;
    AppendLength(text.size());
    mBytes += text;
}

void ResultRows::Append(const tsql::Datum& value) {
    if (const auto* integer = std::get_if<std::int64_t>(&value)) {
        AppendPlain(mBytes, kInteger, *integer);
    } else if (const auto* number = std::get_if<double>(&value)) {
        AppendPlain(mBytes, kNumber, *number);
    } else if (const auto* text = std::get_if<std::string>(&value)) {
        AppendText(*text);
    } else {
        mBytes += kNull;
    }
}

tsql::Datum ResultRows::At(std::size_t row, int column) const {
    std::size_t at = mRowStarts[row];
    for (;; --column) {
        const char tag = mBytes[at++];
        const std::size_t length = tag == kText ? ReadLength(at) : tag == kNull ? 0 : 8;
        if (column > 0) {
            at += length;
        } else if (tag == kText) {
            return mBytes.substr(at, length);
        } else if (tag == kInteger) {
            return ReadPlain<std::int64_t>(mBytes, at);
        } else if (tag == kNumber) {
            return ReadPlain<double>(mBytes, at);
        } else {
            return {};
        }
    }
}

platform::Value ResultRows::ValueAt(std::size_t row, int column) const {
    return tsql::ToValue(At(row, column), columns[static_cast<std::size_t>(column)].type);
}

}  // namespace kelvane::odbc
