#include "adapters/odbc/literal_text.h"

#include <algorithm>
#include <charconv>

#include "platform/ascii.h"

namespace kelvane::odbc {

namespace {

constexpr std::string_view kMidnight = " 00:00:00.000";

std::string Quoted(std::string_view text) {
    std::string result = platform::IsAscii(text) ? "'" : "N'";
    for (const char c : text) {
        result += c;
        if (c == '\'') result += c;
    }
    return result + '\'';
}

std::string NumberText(double number) {
    char buffer[32];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, number).ptr;
    return {buffer, end};
}

}  // namespace

std::string LiteralText(const tsql::Datum& value, tsql::Type type) {
    if (const auto* integer = std::get_if<std::int64_t>(&value)) return std::to_string(*integer);
    if (const auto* number = std::get_if<double>(&value)) return NumberText(*number);
    const auto* text = std::get_if<std::string>(&value);
    if (text == nullptr) return "null";
    if (type.kind == tsql::Type::Kind::Money) return *text;
    std::string_view shown = *text;
    if (type.kind == tsql::Type::Kind::DateTime && shown.ends_with(kMidnight)) {
        shown.remove_suffix(kMidnight.size());
    }
    return Quoted(shown);
}

std::string NameText(std::string_view name) {
    const bool plain = !name.empty() && !(name.front() >= '0' && name.front() <= '9') &&
                       std::all_of(name.begin(), name.end(), [](char c) {
                           return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                                  (c >= '0' && c <= '9') || c == '_';
                       });
    if (plain) return std::string(name);
    std::string result = "[";
    for (const char c : name) {
        result += c;
        if (c == ']') result += c;
    }
    return result + ']';
}

}  // namespace kelvane::odbc
