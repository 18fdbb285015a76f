#include "adapters/tsql/postgres/postgres_conversion.h"

#include "adapters/tsql/language/errors.h"
#include "adapters/tsql/language/quoted_text.h"

namespace kelvane::tsql {

namespace {

using Kind = Type::Kind;

std::string Name(Type type) {
    return QuotedText(TypeName(type));
}

std::string Cast(const std::string& value, Type type) {
    return value + "::" + std::string(PostgresType(type));
}

// A float's exact decimal digits; the server's own cast keeps fifteen of them.
std::string Exact(const std::string& value, Type type) {
    return value + (type.kind == Kind::Float ? "::text::numeric" : "::numeric");
}

std::string ToText(const std::string& value, Type from, Type to, int style) {
    std::string text = value;
    const std::string styled = '(' + value + ", " + std::to_string(style) + ')';
    if (from.kind == Kind::Money) {
        text = "kelvane_money_text" + styled;
    } else if (from.kind == Kind::Float) {
        text = "kelvane_float_text" + styled;
    } else if (from.kind == Kind::DateTime) {
        text = "kelvane_date_text" + styled;
    } else if (from.IsInteger()) {
        text = value + "::text";
    }
    if (to.length == 0) return text;
    return "kelvane_cut(" + text + ", " + std::to_string(to.length) + ", " + Name(to) + ", " +
           (from.IsNumber() ? "true" : "false") + ')';
}

std::string ToInteger(const std::string& value, Type from, Type to) {
    if (from.IsText()) {
        return Cast("kelvane_to_integer(" + value + ", " + Name(from) + ", " + Name(to) + ')', to);
    }
    if (to.kind == Kind::Bit) return "(" + value + " <> 0)::int";
    if (from.kind == Kind::Float) return WithinRange("trunc(" + Exact(value, from) + ')', to);
    if (from.kind == Kind::Money) return WithinRange("round(" + value + ')', to);
    return from.kind <= to.kind ? Cast(value, to) : WithinRange(value, to);
}

std::string ToMoney(const std::string& value, Type from) {
    if (from.IsText()) return "kelvane_to_money(" + value + ", " + Name(from) + ')';
    return WithinRange("round(" + Exact(value, from) + ", 4)", {Kind::Money, 0});
}

std::string ToDate(const std::string& value, Type from, Type to) {
    if (from.IsText()) return "kelvane_to_date(" + value + ')';
    if (from.IsInteger()) return "kelvane_day(" + value + ')';
    throw NotConvertible(from, to);
}

}  // namespace

std::string_view PostgresType(Type type) {
    switch (type.kind) {
        case Kind::Bit:
        case Kind::TinyInt:
        case Kind::SmallInt:
            return "smallint";
        case Kind::Int:
            return "int";
        case Kind::BigInt:
            return "bigint";
        case Kind::Money:
            return "numeric(19,4)";
        case Kind::Float:
            return "float8";
        case Kind::DateTime:
            return "timestamp(3)";
        default:
            return "text";
    }
}

std::string WithinRange(const std::string& number, Type type) {
    const std::string checked = "kelvane_range(" + number + ", " + Name(type) + ')';
    return type.kind == Kind::Money ? checked : Cast(checked, type);
}

std::string ConvertedInPostgres(const std::string& value, Type from, Type to, int style) {
    if (from.kind == Kind::DateTime && to.IsNumber()) throw NotConvertible(from, to);
    if (to.IsText()) return ToText(value, from, to, style);
    if (from.kind == to.kind) return value;
    if (to.IsInteger()) return ToInteger(value, from, to);
    if (to.kind == Kind::Money) return ToMoney(value, from);
    if (to.kind == Kind::DateTime) return ToDate(value, from, to);
    if (to.kind != Kind::Float) return value;
    return from.IsText() ? "kelvane_to_float(" + value + ", " + Name(from) + ')' : Cast(value, to);
}

}  // namespace kelvane::tsql
