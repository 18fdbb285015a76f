#include "adapters/tsql/language/type.h"

#include <charconv>
#include <utility>

#include "platform/ascii.h"

namespace kelvane::tsql {

namespace {

constexpr std::pair<std::string_view, Type::Kind> kNames[] = {
    {"varchar", Type::Kind::VarChar},
    {"char", Type::Kind::VarChar},
    {"nvarchar", Type::Kind::NVarChar},
    {"nchar", Type::Kind::NVarChar},
    {"bit", Type::Kind::Bit},
    {"tinyint", Type::Kind::TinyInt},
    {"smallint", Type::Kind::SmallInt},
    {"int", Type::Kind::Int},
    {"integer", Type::Kind::Int},
    {"bigint", Type::Kind::BigInt},
    {"money", Type::Kind::Money},
    {"float", Type::Kind::Float},
    {"real", Type::Kind::Float},
    {"datetime", Type::Kind::DateTime},
    {"smalldatetime", Type::Kind::DateTime},
};

std::string_view WithoutBlanks(std::string_view text) {
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return text;
}

}  // namespace

std::optional<Type> ParseType(std::string_view text) {
    text = WithoutBlanks(text);
    int length = 0;
    if (const std::size_t open = text.find('('); open != std::string_view::npos) {
        if (text.back() != ')') return std::nullopt;
        const std::string_view digits =
            WithoutBlanks(text.substr(open + 1, text.size() - open - 2));
        const char* end = digits.data() + digits.size();
        const auto [stop, failure] = std::from_chars(digits.data(), end, length);
        if (failure != std::errc() || stop != end || length < 1) return std::nullopt;
        text = WithoutBlanks(text.substr(0, open));
    }
    for (const auto& [name, kind] : kNames) {
        if (!platform::EqualIgnoringCase(name, text)) continue;
        const Type type{kind, length};
        if (length != 0 && !type.IsText()) return std::nullopt;
        return type;
    }
    return std::nullopt;
}

std::string_view TypeName(Type type) {
    for (const auto& [name, kind] : kNames) {
        if (kind == type.kind) return name;
    }
    return "NULL";
}

}  // namespace kelvane::tsql
