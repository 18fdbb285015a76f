#include "adapters/tsql/values/value_conversion.h"

#include <string>
#include <utility>

#include "adapters/tsql/language/errors.h"
#include "adapters/tsql/values/stored_value.h"

namespace kelvane::tsql {

namespace {

using platform::DateTime;
using platform::Money;
using platform::Value;
using Kind = Type::Kind;

// A value of the library with the dialect's type that comes closest. Each datum is made in its
// place: GCC's library destroys a text in a variant whose copy got no memory, though there is none.
std::pair<Datum, Type> Typed(const Value& value) {
    if (const auto* integer = value.As<std::int64_t>()) return {*integer, Type{Kind::BigInt, 0}};
    if (const auto* number = value.As<double>()) return {*number, Type{Kind::Float, 0}};
    if (const auto* amount = value.As<Money>()) return {amount->Units(), Type{Kind::Money, 0}};
    if (const auto* text = value.As<std::string>()) return {*text, Type{Kind::VarChar, 0}};
    if (const auto* date = value.As<DateTime>()) {
        if (!date->IsValid()) throw OutOfRangeDate();
        return {date->FullText(), Type{Kind::VarChar, 0}};
    }
    return {};
}

}  // namespace

Value ToValue(Datum stored, Type type) {
    // A text column whose text is at hand needs no conversion.
    if (auto* text = type.IsText() ? std::get_if<std::string>(&stored) : nullptr) {
        return Value(std::move(*text));
    }
    DateTime date;
    if (const auto* text = std::get_if<std::string>(&stored);
        type.kind == Kind::DateTime && text != nullptr && DateTime::Parse(*text, date)) {
        return Value(date);
    }
    Datum loaded = Loaded(std::move(stored), type);
    if (const auto* integer = std::get_if<std::int64_t>(&loaded)) {
        return type.kind == Kind::Money ? Value(Money::FromUnits(*integer)) : Value(*integer);
    }
    if (const auto* number = std::get_if<double>(&loaded)) return Value(*number);
    auto* text = std::get_if<std::string>(&loaded);
    if (text == nullptr) return {};
    if (type.kind != Kind::DateTime) return Value(std::move(*text));
    if (!DateTime::Parse(*text, date)) throw OutOfRangeDate();
    return Value(date);
}

Datum ToStored(const Value& value, Type type, std::string_view column) {
    const auto [datum, from] = Typed(value);
    // The conversion must not cut the text: whether it is too long, Stored() decides.
    const Type to = type.IsText() ? Type{type.kind, 0} : type;
    return Stored(Convert(datum, from, to), type, column);
}

}  // namespace kelvane::tsql
