#include "adapters/tsql/language/type.h"

#include <algorithm>
#include <charconv>
#include <iterator>

#include "platform/ascii.h"

namespace kelvane::tsql {

namespace {

struct NamedType {
    std::string_view name;
    Type::Kind kind;
    bool takesLength = false;
};

// The first name of a kind is the one that messages have.
constexpr NamedType kNames[] = {
    {"varchar", Type::Kind::VarChar, true},
    {"char", Type::Kind::VarChar, true},
    {"text", Type::Kind::VarChar},
    {"nvarchar", Type::Kind::NVarChar, true},
    {"nchar", Type::Kind::NVarChar, true},
    {"ntext", Type::Kind::NVarChar},
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

const NamedType* FindName(std::string_view name) {
    const auto* found = std::find_if(
        std::begin(kNames), std::end(kNames),
        [&](const NamedType& named) { return platform::EqualIgnoringCase(named.name, name); });
    return found == std::end(kNames) ? nullptr : found;
}

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
    const NamedType* named = FindName(text);
    if (named == nullptr || (length != 0 && !named->takesLength)) return std::nullopt;
    return Type{named->kind, length};
}

bool TakesLength(std::string_view name) {
    const NamedType* named = FindName(name);
    return named != nullptr && named->takesLength;
}

std::string_view TypeName(Type type) {
    for (const NamedType& named : kNames) {
        if (named.kind == type.kind) return named.name;
    }
    return "NULL";
}

}  // namespace kelvane::tsql
