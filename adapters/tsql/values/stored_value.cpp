#include "adapters/tsql/values/stored_value.h"

#include <optional>
#include <utility>

#include "adapters/tsql/language/errors.h"
#include "adapters/tsql/language/text_rules.h"
#include "adapters/tsql/values/date_conversion.h"
#include "platform/decimal.h"
#include "platform/money.h"

namespace kelvane::tsql {

namespace {

using Kind = Type::Kind;

constexpr int kMoneyPlaces = 4;
constexpr Type kMoney{Kind::Money, 0};

}  // namespace

Datum Stored(Datum value, Type column, std::string_view columnName) {
    if (column.kind == Kind::Money) {
        if (const auto* units = std::get_if<std::int64_t>(&value)) return MoneyText(*units);
    }
    auto* text = column.IsText() ? std::get_if<std::string>(&value) : nullptr;
    if (text == nullptr || column.length == 0) return value;
    const bool wide = column.kind == Kind::NVarChar;
    const std::string_view part = FirstPart(*text, static_cast<std::size_t>(column.length), wide);
    if (part.size() == text->size()) return value;
    if (part.size() < TrimEnd(*text).size()) throw TextTooLong(columnName);
    text->resize(part.size());
    return value;
}

Datum Loaded(Datum stored, Type column) {
    if (std::holds_alternative<std::monostate>(stored)) return stored;
    if (column.kind == Kind::Money) {
        if (const auto* text = std::get_if<std::string>(&stored)) return MoneyUnits(*text);
        if (const auto* number = std::get_if<double>(&stored)) {
            return Convert(*number, {Kind::Float, 0}, column);
        }
        return stored;
    }
    Type held{Kind::BigInt, 0};
    if (std::holds_alternative<std::string>(stored)) held.kind = Kind::VarChar;
    if (std::holds_alternative<double>(stored)) held.kind = Kind::Float;
    if (column.kind == Kind::DateTime && !held.IsText()) return stored;
    if (held.kind == column.kind || (held.IsInteger() && column.IsInteger())) return stored;
    // A text column's own text is never cut.
    return Convert(stored, held, column.IsText() ? Type{column.kind, 0} : column);
}

std::string MoneyText(std::int64_t units) {
    return platform::Money::FromUnits(units).ToFixedText();
}

std::int64_t MoneyUnits(std::string_view text) {
    // Amounts in the form in which they are stored need no general reader, which is slower.
    const bool negative = !text.empty() && text.front() == '-';
    const std::string_view digits = negative ? text.substr(1) : text;
    const std::size_t point = digits.size() - 5;
    if (digits.size() >= 6 && digits.size() <= 18 && digits[point] == '.') {
        std::int64_t units = 0;
        bool plain = true;
        for (std::size_t i = 0; i < digits.size() && plain; ++i) {
            if (i == point) continue;
            plain = digits[i] >= '0' && digits[i] <= '9';
            units = units * 10 + (digits[i] - '0');
        }
        if (plain) return negative ? -units : units;
    }
    const std::optional<platform::Decimal> number = platform::Decimal::FromText(text);
    if (!number) throw ConversionFailed(text, {Kind::VarChar, 0}, kMoney);
    const std::optional<std::int64_t> units =
        number->Scaled(kMoneyPlaces, platform::Rounding::HalfAwayFromZero);
    if (!units) throw ArithmeticOverflow(kMoney);
    return *units;
}

}  // namespace kelvane::tsql
