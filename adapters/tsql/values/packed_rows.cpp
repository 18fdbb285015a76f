#include "adapters/tsql/values/packed_rows.h"

#include <cstring>

namespace kelvane::tsql {

namespace {

constexpr char kNull = 0;
constexpr char kInteger = 1;
constexpr char kNumber = 2;
constexpr char kText = 3;
constexpr std::size_t kPlainSize = 8;

template <typename Plain>
void AppendPlain(std::string& bytes, char tag, Plain value) {
    static_assert(sizeof value == kPlainSize);
    char buffer[kPlainSize];
    std::memcpy(buffer, &value, kPlainSize);
    bytes += tag;
    bytes.append(buffer, kPlainSize);
}

template <typename Plain>
Plain ReadPlain(const std::string& bytes, std::size_t at) {
    Plain value;
    std::memcpy(&value, bytes.data() + at, kPlainSize);
    return value;
}

}  // namespace

void PackedRows::AppendLength(std::size_t length) {
    for (; length >= 0x80; length >>= 7) mBytes += static_cast<char>((length & 0x7F) | 0x80);
    mBytes += static_cast<char>(length);
}

std::size_t PackedRows::ReadLength(std::size_t& at) const {
    std::size_t length = 0;
    for (unsigned shift = 0;; shift += 7) {
        const auto byte = static_cast<unsigned char>(mBytes[at++]);
        length |= std::size_t{byte & 0x7FU} << shift;
        if (byte < 0x80) return length;
    }
}

void PackedRows::AppendNull() {
    mBytes += kNull;
}

void PackedRows::AppendInteger(std::int64_t value) {
    AppendPlain(mBytes, kInteger, value);
}

void PackedRows::AppendNumber(double value) {
    AppendPlain(mBytes, kNumber, value);
}

void PackedRows::AppendText(std::string_view value) {
    mBytes += kText;
    AppendLength(value.size());
    mBytes += value;
}

Datum PackedRows::At(std::size_t row, int column) const {
    std::size_t at = mRowStarts[row];
    for (;; --column) {
        const char tag = mBytes[at++];
        const std::size_t length = tag == kText ? ReadLength(at) : tag == kNull ? 0 : kPlainSize;
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

}  // namespace kelvane::tsql
