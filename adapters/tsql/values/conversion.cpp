#include "adapters/tsql/values/conversion.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>
#include <optional>
#include <utility>

#include "adapters/tsql/language/errors.h"
#include "adapters/tsql/language/text_rules.h"
#include "adapters/tsql/values/date_conversion.h"
#include "platform/ascii.h"
#include "platform/decimal.h"
#include "platform/money.h"

namespace kelvane::tsql {

namespace {

using platform::Decimal;
using platform::Money;
using platform::Rounding;
using Kind = Type::Kind;

constexpr int kMoneyPlaces = 4;

struct Range {
    std::int64_t low;
    std::int64_t high;
};

Range RangeOf(Kind kind) {
    switch (kind) {
        case Kind::Bit:
            return {0, 1};
        case Kind::TinyInt:
            return {0, 255};
        case Kind::SmallInt:
            return {std::numeric_limits<std::int16_t>::min(),
                    std::numeric_limits<std::int16_t>::max()};
        case Kind::Int:
            return {std::numeric_limits<std::int32_t>::min(),
                    std::numeric_limits<std::int32_t>::max()};
        default:
            return {std::numeric_limits<std::int64_t>::min(),
                    std::numeric_limits<std::int64_t>::max()};
    }
}

std::string_view Trimmed(std::string_view text) {
    text = TrimEnd(text);
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    return text;
}

// A plus in front, which the reader of digits does not take, is cut off; but "+-5" is no number and
// must not become one.
std::string_view WithoutPlus(std::string_view digits) {
    if (digits.starts_with('+') && !digits.starts_with("+-")) digits.remove_prefix(1);
    return digits;
}

std::int64_t Narrow(std::int64_t value, Type to) {
    if (to.kind == Kind::Bit) return value != 0 ? 1 : 0;
    const Range range = RangeOf(to.kind);
    if (value < range.low || value > range.high) throw ArithmeticOverflow(to);
    return value;
}

std::int64_t TextToInteger(std::string_view text, Type from, Type to) {
    std::string_view digits = Trimmed(text);
    if (to.kind == Kind::Bit) {
        if (platform::EqualIgnoringCase(digits, "true")) return 1;
        if (platform::EqualIgnoringCase(digits, "false")) return 0;
    }
    if (digits.empty()) return 0;
    digits = WithoutPlus(digits);
    std::int64_t value = 0;
    const char* end = digits.data() + digits.size();
    const auto [stop, failure] = std::from_chars(digits.data(), end, value);
    if (failure == std::errc::result_out_of_range && stop == end) throw ValueOverflow(text, to);
    if (failure != std::errc() || stop != end) throw ConversionFailed(text, from, to);
    if (to.kind == Kind::Bit) return value != 0 ? 1 : 0;
    const Range range = RangeOf(to.kind);
    if (value < range.low || value > range.high) throw ValueOverflow(text, to);
    return value;
}

std::int64_t ScaledToMoney(const Decimal& number) {
    const std::optional<std::int64_t> units =
        number.Scaled(kMoneyPlaces, Rounding::HalfAwayFromZero);
    if (!units) throw ArithmeticOverflow({Kind::Money, 0});
    return *units;
}

std::int64_t TextToMoney(std::string_view text, Type from) {
    const std::string_view digits = Trimmed(text);
    if (digits.empty()) return 0;
    const std::optional<Decimal> number = Decimal::FromText(digits);
    if (!number || digits.find_first_of("eE") != std::string_view::npos) {
        throw ConversionFailed(text, from, {Kind::Money, 0});
    }
    return ScaledToMoney(*number);
}

double TextToFloat(std::string_view text, Type from) {
    std::string_view digits = Trimmed(text);
    if (digits.empty()) return 0;
    digits = WithoutPlus(digits);
    double value = 0;
    const char* end = digits.data() + digits.size();
    const auto [stop, failure] = std::from_chars(digits.data(), end, value);
    // "inf" and "nan" are read too, but are no numbers of the dialect.
    if (failure != std::errc() || stop != end || !std::isfinite(value)) {
        throw ConversionFailed(text, from, {Kind::Float, 0});
    }
    return value;
}

std::int64_t FloatToInteger(double value, Type to) {
    constexpr double kLimit = 9.2e18;
    if (!(value > -kLimit && value < kLimit)) throw ArithmeticOverflow(to);
    return Narrow(static_cast<std::int64_t>(value), to);
}

std::string GroupedText(const std::string& plain) {
    const std::size_t start = plain.front() == '-' ? 1 : 0;
    std::string result = plain;
    for (std::size_t point = plain.find('.'); point > start + 3; point -= 3) {
        result.insert(point - 3, 1, ',');
    }
    return result;
}

std::string MoneyToText(std::int64_t units, int style) {
    if (style < 0 || style > 2) throw InvalidStyle(style);
    const int places = style == 2 ? kMoneyPlaces : 2;
    const std::string plain = Decimal::FromScaled(units, kMoneyPlaces)
                                  .Rounded(places, Rounding::HalfAwayFromZero)
                                  .FixedText(places);
    return style == 1 ? GroupedText(plain) : plain;
}

// The exponent has three digits at least.
std::string FloatToText(double value, int style) {
    constexpr std::pair<int, const char*> kFormats[] = {{0, "%.6g"}, {1, "%.7e"}, {2, "%.15e"}};
    for (const auto& [known, format] : kFormats) {
        if (known != style) continue;
        char buffer[40];
        const int length = std::snprintf(buffer, sizeof buffer, format, value);
        std::string text(buffer, static_cast<std::size_t>(length));
        const std::size_t exponent = text.find('e');
        if (exponent != std::string::npos && text.size() - exponent == 4) {
            text.insert(exponent + 2, 1, '0');
        }
        return text;
    }
    throw InvalidStyle(style);
}

std::string Cut(std::string text, Type to, bool isNumber) {
    if (to.length == 0) return text;
    const bool wide = to.kind == Kind::NVarChar;
    const std::string_view part = FirstPart(text, static_cast<std::size_t>(to.length), wide);
    if (part.size() == text.size()) return text;
    if (isNumber) throw ArithmeticOverflow(to);
    return std::string(part);
}

std::string ToText(const Datum& value, Type from, Type to, int style) {
    if (from.IsText()) return Cut(std::get<std::string>(value), to, false);
    if (from.kind == Kind::DateTime) {
        return Cut(DateToText(std::get<std::string>(value), style), to, false);
    }
    if (from.kind == Kind::Float) return Cut(FloatToText(std::get<double>(value), style), to, true);
    const std::int64_t number = std::get<std::int64_t>(value);
    if (from.kind == Kind::Money) return Cut(MoneyToText(number, style), to, true);
    return Cut(std::to_string(number), to, true);
}

std::int64_t ToInteger(const Datum& value, Type from, Type to) {
    if (from.IsText()) return TextToInteger(std::get<std::string>(value), from, to);
    if (from.kind == Kind::Float) return FloatToInteger(std::get<double>(value), to);
    const std::int64_t number = std::get<std::int64_t>(value);
    if (from.kind != Kind::Money) return Narrow(number, to);
    const std::optional<std::int64_t> whole =
        Decimal::FromScaled(number, kMoneyPlaces).Scaled(0, Rounding::HalfAwayFromZero);
    return Narrow(to.kind == Kind::Bit ? number : whole.value_or(0), to);
}

std::int64_t ToMoney(const Datum& value, Type from) {
    if (from.kind == Kind::Money) return std::get<std::int64_t>(value);
    if (from.IsText()) return TextToMoney(std::get<std::string>(value), from);
    if (from.kind == Kind::Float) {
        const std::optional<Decimal> number = Decimal::FromDouble(std::get<double>(value));
        if (!number) throw ArithmeticOverflow({Kind::Money, 0});
        return ScaledToMoney(*number);
    }
    return ScaledToMoney(Decimal(std::get<std::int64_t>(value)));
}

double ToFloat(const Datum& value, Type from) {
    if (from.kind == Kind::Float) return std::get<double>(value);
    if (from.IsText()) return TextToFloat(std::get<std::string>(value), from);
    const auto number = static_cast<double>(std::get<std::int64_t>(value));
    return from.kind == Kind::Money ? number / static_cast<double>(Money::kUnitsPerOne) : number;
}

std::string ToDate(const Datum& value, Type from) {
    if (from.kind == Kind::DateTime) return std::get<std::string>(value);
    if (from.IsText()) return TextToDate(std::get<std::string>(value), from);
    if (from.IsInteger()) return DaysToDate(std::get<std::int64_t>(value));
    throw NotConvertible(from, {Kind::DateTime, 0});
}

}  // namespace

Datum Convert(const Datum& value, Type from, Type to, int style) {
    if (std::holds_alternative<std::monostate>(value)) return {};
    if (from.kind == Kind::DateTime && to.IsNumber()) throw NotConvertible(from, to);
    if (to.IsText()) return ToText(value, from, to, style);
    if (to.IsInteger()) return ToInteger(value, from, to);
    if (to.kind == Kind::Money) return ToMoney(value, from);
    if (to.kind == Kind::Float) return ToFloat(value, from);
    if (to.kind == Kind::DateTime) return ToDate(value, from);
    return value;
}

Datum ConvertLiteral(const Literal& literal, bool negated, Type to) {
    if (literal.IsText()) {
        std::string text = literal.Text();
        // A text meets a text column unchanged: its length is the column's to judge.
        if (to.IsText() && to.length == 0) return text;
        return Convert(Datum(std::move(text)), literal.type, to);
    }
    std::string digits = (negated ? "-" : "") + std::string(literal.raw);
    if (literal.form == Literal::Form::Integer) {
        const std::int64_t value = TextToInteger(digits, literal.type, {Kind::BigInt, 0});
        return Convert(Datum(value), {Kind::BigInt, 0}, to);
    }
    if (to.kind == Kind::Float) return TextToFloat(digits, literal.type);
    const std::optional<Decimal> number = Decimal::FromText(digits);
    if (!number) throw SyntaxError(literal.raw);
    if (to.IsText()) return digits;
    if (to.kind == Kind::Money) return ScaledToMoney(*number);
    if (literal.form == Literal::Form::Float) {
        return Convert(Datum(TextToFloat(digits, literal.type)), literal.type, to);
    }
    return Convert(Datum(ScaledToMoney(*number)), literal.type, to);
}

}  // namespace kelvane::tsql
