#include "tests/windows/ado_server/field_value.h"

#include <cmath>

namespace kelvane::ado_server {
namespace {

using Kind = tsql::Type::Kind;

constexpr long kMillisecondsOfDay = 86400000;
// 1899-12-30, day 0 of a VT_DATE, counted from 1970-01-01.
constexpr long kDateOrigin = -25569;

// Days since the origin; the fraction is the time of day and counts away from zero, also before it.
DATE DateOf(const platform::DateTime& moment) {
    const long days = moment.DayNumber() - kDateOrigin;
    const long time =
        ((moment.hour * 60L + moment.minute) * 60L + moment.second) * 1000L + moment.millisecond;
    const double fraction = static_cast<double>(time) / kMillisecondsOfDay;
    return static_cast<double>(days) + (days < 0 ? -fraction : fraction);
}

platform::DateTime MomentOf(DATE date) {
    double days = 0;
    const double fraction = std::abs(std::modf(date, &days));
    long time = std::lround(fraction * kMillisecondsOfDay);
    auto moment = platform::DateTime::FromDayNumber(std::lround(days) + kDateOrigin +
                                                    time / kMillisecondsOfDay);
    time %= kMillisecondsOfDay;
    moment.millisecond = static_cast<int>(time % 1000);
    moment.second = static_cast<int>(time / 1000 % 60);
    moment.minute = static_cast<int>(time / 60000 % 60);
    moment.hour = static_cast<int>(time / 3600000);
    return moment;
}

DECIMAL DecimalOf(std::int64_t units, int decimals) {
    DECIMAL decimal{};
    decimal.scale = static_cast<BYTE>(decimals);
    decimal.sign = static_cast<BYTE>(units < 0 ? DECIMAL_NEG : 0);
    const auto bits = static_cast<std::uint64_t>(units);
    decimal.Lo64 = units < 0 ? 0 - bits : bits;
    return decimal;
}

// A decimal fills the whole VARIANT, its type number included.
void SetDecimal(VARIANT& variant, const DECIMAL& decimal) {
    variant.decVal = decimal;
    variant.vt = VT_DECIMAL;
}

platform::Money MoneyOf(const DECIMAL& decimal) {
    CY amount{};
    if (FAILED(VarCyFromDec(const_cast<DECIMAL*>(&decimal), &amount))) {
        throw MakeError(ErrorNumber::DataConversion);
    }
    return platform::Money::FromUnits(amount.int64);
}

}  // namespace

Variant FieldVariant(const platform::Value& value, const tsql::Type& type, MoneyForm money) {
    if (value.IsNull()) return Variant::Null();
    Variant result;
    VARIANT& raw = result.Raw();
    switch (type.kind) {
        case Kind::Bit:
            return Variant(value.ToInteger() != 0);
        case Kind::TinyInt:
            raw.bVal = static_cast<BYTE>(value.ToInteger());
            raw.vt = VT_UI1;
            return result;
        case Kind::SmallInt:
            raw.iVal = static_cast<SHORT>(value.ToInteger());
            raw.vt = VT_I2;
            return result;
        case Kind::Int:
            return Variant(static_cast<long>(value.ToInteger()));
        case Kind::BigInt:
            SetDecimal(raw, DecimalOf(value.ToInteger(), 0));
            return result;
        case Kind::Money:
            if (money == MoneyForm::Decimal) {
                SetDecimal(raw, DecimalOf(value.ToMoney().Units(), 4));
            } else {
                raw.cyVal.int64 = value.ToMoney().Units();
                raw.vt = VT_CY;
            }
            return result;
        case Kind::Float:
            raw.dblVal = value.ToDouble();
            raw.vt = VT_R8;
            return result;
        case Kind::DateTime:
            raw.date = DateOf(value.ToDateTime());
            raw.vt = VT_DATE;
            return result;
        case Kind::Null:
        case Kind::VarChar:
        case Kind::NVarChar:
            break;
    }
    return Variant(value.ToText());
}

long DataTypeOf(const tsql::Type& type, MoneyForm money) {
    switch (type.kind) {
        case Kind::Bit:
            return 11;
        case Kind::TinyInt:
            return 17;
        case Kind::SmallInt:
            return 2;
        case Kind::Int:
            return 3;
        case Kind::BigInt:
            return 20;
        case Kind::Money:
            return money == MoneyForm::Decimal ? 131 : 6;
        case Kind::Float:
            return 5;
        case Kind::DateTime:
            return 135;
        case Kind::VarChar:
            return 200;
        case Kind::Null:
        case Kind::NVarChar:
            break;
    }
    return 202;
}

platform::Value ValueOf(const VARIANT& variant) {
    using platform::Value;
    if ((variant.vt & VT_BYREF) != 0) {
        VARIANT direct;
        VariantInit(&direct);
        if (FAILED(VariantCopyInd(&direct, const_cast<VARIANT*>(&variant)))) {
            throw MakeError(ErrorNumber::DataConversion);
        }
        Value value = ValueOf(direct);
        VariantClear(&direct);
        return value;
    }
    switch (variant.vt) {
        case VT_NULL:
            return {};
        case VT_BSTR:
            return Value(TextOf(variant.bstrVal));
        case VT_BOOL:
            return Value(std::int64_t{variant.boolVal == VARIANT_FALSE ? 0 : 1});
        case VT_UI1:
            return Value(std::int64_t{variant.bVal});
        case VT_I2:
            return Value(std::int64_t{variant.iVal});
        case VT_INT:
        case VT_I4:
            return Value(std::int64_t{variant.lVal});
        case VT_I8:
            return Value(std::int64_t{variant.llVal});
        case VT_R4:
            return Value(double{variant.fltVal});
        case VT_R8:
            return Value(variant.dblVal);
        case VT_CY:
            return Value(platform::Money::FromUnits(variant.cyVal.int64));
        case VT_DECIMAL:
            return Value(MoneyOf(variant.decVal));
        case VT_DATE:
            return Value(MomentOf(variant.date));
        default:
            throw MakeError(ErrorNumber::DataConversion);
    }
}

}  // namespace kelvane::ado_server
