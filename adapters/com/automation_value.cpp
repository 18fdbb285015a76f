#include "adapters/com/automation_value.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <stdexcept>

#include "adapters/com/wide_text.h"
#include "platform/decimal.h"

namespace kelvane::com {

namespace {

using platform::DateTime;
using platform::Decimal;
using platform::Money;
using platform::Rounding;
using platform::Value;

constexpr int kMoneyPlaces = 4;
constexpr double kMillisecondsPerDay = 86'400'000;
constexpr std::int64_t kTicksPerSecond = 300;
constexpr std::int64_t kTicksPerDay = 86'400 * kTicksPerSecond;
constexpr double kFirstDay = -657'434;  // 0100-01-01
constexpr double kEnd = 2'958'466;      // 10000-01-01

long DayZero() {
    return DateTime{1899, 12, 30}.DayNumber();
}

// The double whose shortest text is the single's: 0.1 stays 0.1.
double Widened(float single) {
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), single).ptr;
    double result = 0;
    std::from_chars(text.data(), end, result);
    return result;
}

Value OfDecimal(const DECIMAL& number) {
    const Decimal decimal = *Decimal::FromText(DecimalText(number));
    if (number.scale == 0) {
        if (const auto whole = decimal.Scaled(0, Rounding::HalfToEven)) return Value(*whole);
    }
    const auto units = decimal.Scaled(kMoneyPlaces, Rounding::HalfToEven);
    const bool isAmount =
        units && Decimal::FromScaled(*units, kMoneyPlaces).Text() == decimal.Text();
    return isAmount ? Value(Money::FromUnits(*units)) : Value(decimal.Text());
}

Value OfUnsigned(std::uint64_t number) {
    constexpr auto kMax = std::numeric_limits<std::int64_t>::max();
    if (number > static_cast<std::uint64_t>(kMax)) return Value(std::to_string(number));
    return Value(static_cast<std::int64_t>(number));
}

Value OfInteger(std::int64_t number) {
    return Value(number);
}

}  // namespace

std::string DecimalText(const DECIMAL& number) {
    std::array<std::uint32_t, 3> words{number.Hi32, number.Mid32, number.Lo32};
    std::string digits;
    while (std::ranges::any_of(words, [](std::uint32_t word) { return word != 0; })) {
        std::uint64_t rest = 0;
        for (std::uint32_t& word : words) {
            rest = (rest << 32U) | word;
            word = static_cast<std::uint32_t>(rest / 10);
            rest %= 10;
        }
        digits += static_cast<char>('0' + rest);
    }
    while (digits.size() <= number.scale) digits += '0';
    std::ranges::reverse(digits);
    if (number.scale > 0) digits.insert(digits.size() - number.scale, 1, '.');
    return number.sign == DECIMAL_NEG ? '-' + digits : digits;
}

double ToDateNumber(const DateTime& date) {
    const double day = static_cast<double>(date.DayNumber() - DayZero());
    const double fraction =
        (((date.hour * 60 + date.minute) * 60 + date.second) * 1000 + date.millisecond) /
        kMillisecondsPerDay;
    return day < 0 ? day - fraction : day + fraction;
}

DateTime FromDateNumber(double number) {
    if (!(number > kFirstDay - 1 && number < kEnd)) throw std::invalid_argument("日期超出范围");
    const double whole = std::trunc(number);
    const std::int64_t ticks =
        std::llround(std::abs(number - whole) * static_cast<double>(kTicksPerDay));
    const long day = static_cast<long>(whole) + static_cast<long>(ticks / kTicksPerDay);
    DateTime date = DateTime::FromDayNumber(DayZero() + day);
    const auto inDay = ticks % kTicksPerDay;
    const auto seconds = static_cast<int>(inDay / kTicksPerSecond);
    date.hour = seconds / 3600;
    date.minute = seconds / 60 % 60;
    date.second = seconds % 60;
    date.millisecond = static_cast<int>((inDay % kTicksPerSecond * 10 + 1) / 3);
    return date;
}

Value ToValue(const VARIANT& given) {
    const Variant followed((V_VT(&given) & VT_BYREF) != 0 ? Variant(given) : Variant());
    const VARIANT& variant = (V_VT(&given) & VT_BYREF) != 0 ? followed.Get() : given;
    switch (V_VT(&variant)) {
        case VT_EMPTY:
        case VT_NULL:
            return {};
        case VT_BSTR:
            return Value(TextOf(V_BSTR(&variant)));
        case VT_CY:
            return Value(Money::FromUnits(V_CY(&variant).int64));
        case VT_DECIMAL:
            return OfDecimal(V_DECIMAL(&variant));
        case VT_DATE:
            return Value(FromDateNumber(V_DATE(&variant)));
        case VT_BOOL:
            return OfInteger(V_BOOL(&variant) == VARIANT_FALSE ? 0 : 1);
        case VT_I1:
            return OfInteger(V_I1(&variant));
        case VT_UI1:
            return OfInteger(V_UI1(&variant));
        case VT_I2:
            return OfInteger(V_I2(&variant));
        case VT_UI2:
            return OfInteger(V_UI2(&variant));
        case VT_I4:
            return OfInteger(V_I4(&variant));
        case VT_UI4:
            return OfInteger(V_UI4(&variant));
        case VT_INT:
            return OfInteger(V_INT(&variant));
        case VT_UINT:
            return OfInteger(V_UINT(&variant));
        case VT_I8:
            return OfInteger(V_I8(&variant));
        case VT_UI8:
            return OfUnsigned(V_UI8(&variant));
        case VT_R4:
            return Value(Widened(V_R4(&variant)));
        case VT_R8:
            return Value(V_R8(&variant));
        case VT_DISPATCH:
        case VT_UNKNOWN:
            if (V_UNKNOWN(&variant) == nullptr) return {};
            break;
        default:
            break;
    }
    throw std::invalid_argument("不能识别的数据类型 " + std::to_string(V_VT(&variant)));
}

Variant ToVariant(const Value& value) {
    Variant result;
    VARIANT* variant = result.Receive();
    if (const auto* text = value.As<std::string>()) return Variant::OfText(*text);
    if (const auto* integer = value.As<std::int64_t>()) {
        const bool isShort = *integer >= std::numeric_limits<LONG>::min() &&
                             *integer <= std::numeric_limits<LONG>::max();
        if (isShort) return Variant::OfInteger(static_cast<long>(*integer));
        V_VT(variant) = VT_I8;
        V_I8(variant) = *integer;
    } else if (const auto* number = value.As<double>()) {
        V_VT(variant) = VT_R8;
        V_R8(variant) = *number;
    } else if (const auto* amount = value.As<Money>()) {
        V_VT(variant) = VT_CY;
        V_CY(variant).int64 = amount->Units();
    } else if (const auto* date = value.As<DateTime>()) {
        V_VT(variant) = VT_DATE;
        V_DATE(variant) = ToDateNumber(*date);
    } else {
        V_VT(variant) = VT_NULL;
    }
    return result;
}

}  // namespace kelvane::com
