#include "adapters/sqlite/connection_string.h"

#include <charconv>

#include "platform/ascii.h"
#include "platform/connection_string.h"
#include "platform/database.h"

namespace kelvane::sqlite {

namespace {

using platform::ConnectionPart;
using platform::DatabaseError;
using platform::EqualIgnoringCase;
using platform::ValueMarks;

int Milliseconds(std::string_view text) {
    int value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, failure] = std::from_chars(text.data(), end, value);
    if (failure != std::errc() || stop != end || value < 0) {
        throw DatabaseError("连接串中的 Timeout 不是毫秒数");
    }
    return value;
}

constexpr std::string_view kPath = "Data Source";
constexpr std::string_view kTimeout = "Timeout";

// A plain path is one part, whose beginning is no key.
bool HasKeys(const std::vector<ConnectionPart>& parts) {
    return !parts.empty() && (EqualIgnoringCase(parts.front().name, kPath) ||
                              EqualIgnoringCase(parts.front().name, kTimeout));
}

}  // namespace

ConnectionTarget ParseConnectionString(std::string_view text) {
    ConnectionTarget target;
    const auto parts = platform::ReadConnectionString(text, ValueMarks::Quotes);
    if (!HasKeys(parts)) {
        target.path = platform::PlainValue(text, ValueMarks::Quotes);
    } else {
        for (const ConnectionPart& part : parts) {
            if (EqualIgnoringCase(part.name, kPath)) {
                target.path = part.value;
            } else if (EqualIgnoringCase(part.name, kTimeout)) {
                target.timeout = Milliseconds(part.value);
            } else {
                throw DatabaseError("连接串中有不认识的项目");
            }
        }
    }
    if (target.path.empty()) throw DatabaseError("连接串没有指明账套文件");
    return target;
}

}  // namespace kelvane::sqlite
