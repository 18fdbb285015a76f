#include "adapters/sqlite/connection_string.h"

#include <charconv>

#include "platform/ascii.h"
#include "platform/database.h"

namespace kelvane::sqlite {

namespace {

using platform::DatabaseError;
using platform::EqualIgnoringCase;

std::string_view Trimmed(std::string_view text) {
    while (text.starts_with(' ')) text.remove_prefix(1);
    while (text.ends_with(' ')) text.remove_suffix(1);
    return text;
}

std::string_view Unquoted(std::string_view text) {
    text = Trimmed(text);
    if (text.size() >= 2 && text.front() == '"' && text.back() == '"') {
        return text.substr(1, text.size() - 2);
    }
    return text;
}

// Takes the part up to the next semicolon that is not in quotes.
std::string_view TakePart(std::string_view& text) {
    bool quoted = false;
    std::size_t end = 0;
    while (end < text.size() && (quoted || text[end] != ';')) {
        if (text[end] == '"') quoted = !quoted;
        ++end;
    }
    const std::string_view part = text.substr(0, end);
    text.remove_prefix(end == text.size() ? end : end + 1);
    return part;
}

int Milliseconds(std::string_view text) {
    int value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, failure] = std::from_chars(text.data(), end, value);
    if (failure != std::errc() || stop != end || value < 0) {
        throw DatabaseError("连接串中的 Timeout 不是毫秒数");
    }
    return value;
}

bool HasKeys(std::string_view text) {
    const std::string_view key = Trimmed(text.substr(0, text.find('=')));
    return text.find('=') != std::string_view::npos &&
           (EqualIgnoringCase(key, "Data Source") || EqualIgnoringCase(key, "Timeout"));
}

}  // namespace

ConnectionTarget ParseConnectionString(std::string_view text) {
    ConnectionTarget target;
    if (!HasKeys(text)) {
        target.path = Unquoted(text);
    } else {
        while (!text.empty()) {
            const std::string_view part = TakePart(text);
            if (Trimmed(part).empty()) continue;
            const std::size_t equals = part.find('=');
            const std::string_view key = Trimmed(part.substr(0, equals));
            const std::string_view value =
                equals == std::string_view::npos ? "" : Unquoted(part.substr(equals + 1));
            if (EqualIgnoringCase(key, "Data Source")) {
                target.path = value;
            } else if (EqualIgnoringCase(key, "Timeout")) {
                target.timeout = Milliseconds(value);
            } else {
                throw DatabaseError("连接串中有不认识的项目");
            }
        }
    }
    if (target.path.empty()) throw DatabaseError("连接串没有指明账套文件");
    return target;
}

}  // namespace kelvane::sqlite
