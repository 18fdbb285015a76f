#include "adapters/sqlite/row_buffer.h"

#include <cstring>

namespace kelvane::sqlite {

namespace {

constexpr char kNull = 0;
constexpr char kInteger = 1;
constexpr char kNumber = 2;
constexpr char kText = 3;

template <typename Plain>
void AppendPlain(std::string& bytes, Plain value) {
    char buffer[sizeof value];
    std::memcpy(buffer, &value, sizeof value);
    bytes.append(buffer, sizeof value);
}

template <typename Plain>
Plain ReadPlain(const std::string& bytes, std::size_t at) {
    Plain value;
    std::memcpy(&value, bytes.data() + at, sizeof value);
    return value;
}

}  // namespace

void RowBuffer::AppendLength(std::size_t length) {
    for (; length >= 0x80; length >>= 7) mBytes += static_cast<char>((length & 0x7F) | 0x80);
    mBytes += static_cast<char>(length);
}

std::size_t RowBuffer::ReadLength(std::size_t& at) const {
    std::size_t length = 0;
    for (unsigned shift = 0;; shift += 7) {
        const auto byte = static_cast<unsigned char>(mBytes[at++]);
        length |= std::size_t{byte & 0x7FU} << shift;
        if (byte < 0x80) return length;
    }
}

void RowBuffer::Append(const Statement& statement, int columns) {
    mRowStarts.push_back(mBytes.size());
    for (int column = 0; column < columns; ++column) {
        sqlite3_stmt* handle = statement.Handle();
        switch (sqlite3_column_type(handle, column)) {
            case SQLITE_INTEGER:
                mBytes += kInteger;
                AppendPlain<std::int64_t>(mBytes, sqlite3_column_int64(handle, column));
                break;
            case SQLITE_FLOAT:
                mBytes += kNumber;
                AppendPlain(mBytes, sqlite3_column_double(handle, column));
                break;
            case SQLITE_NULL:
                mBytes += kNull;
                break;
            default: {
                mBytes += kText;
                const auto* text =
                    reinterpret_cast<const char*>(sqlite3_column_text(handle, column));
                const auto length = static_cast<std::size_t>(sqlite3_column_bytes(handle, column));
                AppendLength(length);
                if (length > 0) mBytes.append(text, length);
            }
        }
    }
}

std::size_t RowBuffer::Skip(std::size_t at) const {
    switch (mBytes[at++]) {
        case kNull:
            return at;
        case kText: {
            const std::size_t length = ReadLength(at);
            return at + length;
        }
        default:
            return at + sizeof(std::int64_t);
    }
}

tsql::Datum RowBuffer::At(std::size_t row, int column) const {
    std::size_t at = mRowStarts[row];
    for (int i = 0; i < column; ++i) at = Skip(at);
    switch (mBytes[at++]) {
        case kInteger:
            return ReadPlain<std::int64_t>(mBytes, at);
        case kNumber:
            return ReadPlain<double>(mBytes, at);
        case kText: {
            const std::size_t length = ReadLength(at);
            return mBytes.substr(at, length);
        }
        default:
            return {};
    }
}

}  // namespace kelvane::sqlite
