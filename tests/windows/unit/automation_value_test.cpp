#include "adapters/com/automation_value.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace kelvane::com {
namespace {

using platform::DateTime;
using platform::Money;
using platform::Value;

DECIMAL Decimal(bool negative, std::uint32_t high, std::uint32_t middle, std::uint32_t low,
                BYTE scale) {
    DECIMAL number{};
    number.sign = negative ? DECIMAL_NEG : 0;
    number.scale = scale;
    number.Hi32 = high;
    number.Mid32 = middle;
    number.Lo32 = low;
    return number;
}

Value OfDecimal(const DECIMAL& number) {
    VARIANT variant;
    V_DECIMAL(&variant) = number;
    V_VT(&variant) = VT_DECIMAL;
    return ToValue(variant);
}

template <typename Fill>
Value Of(VARTYPE type, Fill fill) {
    VARIANT variant;
    VariantInit(&variant);
    V_VT(&variant) = type;
    fill(variant);
    return ToValue(variant);
}

Value OfDate(double number) {
    return Of(VT_DATE, [number](VARIANT& v) { V_DATE(&v) = number; });
}

TEST(DecimalText, HasAllDigitsAndDecimals) {
    EXPECT_EQ(DecimalText(Decimal(false, 0, 0, 0, 0)), "0");
    EXPECT_EQ(DecimalText(Decimal(false, 0, 0, 5, 4)), "0.0005");
    EXPECT_EQ(DecimalText(Decimal(true, 0, 0, 1234500, 4)), "-123.4500");
    EXPECT_EQ(DecimalText(Decimal(false, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0)),
              "79228162514264337593543950335");
    EXPECT_EQ(DecimalText(Decimal(false, 0, 1, 0, 4)), "429496.7296");
}

TEST(ToValue, TakesAmountsExactly) {
    const auto currency = [](std::int64_t units) {
        return Of(VT_CY, [units](VARIANT& v) { V_CY(&v).int64 = units; });
    };
    EXPECT_EQ(currency(12345678), Value(Money::FromUnits(12345678)));
    EXPECT_EQ(currency(9223372036854775807), Value(Money::FromUnits(9223372036854775807)));
    EXPECT_EQ(currency(-1), Value(Money::FromUnits(-1)));
}

TEST(ToValue, GivesDecimalsTheKindThatHoldsThem) {
    EXPECT_EQ(OfDecimal(Decimal(false, 0, 0, 70000, 0)), Value(std::int64_t{70000}));
    EXPECT_EQ(OfDecimal(Decimal(true, 0, 0, 12345678, 4)), Value(Money::FromUnits(-12345678)));
    EXPECT_EQ(OfDecimal(Decimal(false, 0, 0, 1200000, 6)), Value(Money::FromUnits(12000)));
    EXPECT_EQ(OfDecimal(Decimal(false, 0, 0, 1234567, 6)), Value("1.234567"));
    EXPECT_EQ(OfDecimal(Decimal(false, 1, 0, 0, 0)), Value("18446744073709551616"));
}

TEST(ToValue, TakesNumbersTextsFlagsAndNull) {
    EXPECT_EQ(Of(VT_UI1, [](VARIANT& v) { V_UI1(&v) = 200; }), Value(std::int64_t{200}));
    EXPECT_EQ(Of(VT_I2, [](VARIANT& v) { V_I2(&v) = -5; }), Value(std::int64_t{-5}));
    EXPECT_EQ(Of(VT_I4, [](VARIANT& v) { V_I4(&v) = 70000; }), Value(std::int64_t{70000}));
    EXPECT_EQ(Of(VT_I8, [](VARIANT& v) { V_I8(&v) = 1LL << 40; }), Value(std::int64_t{1} << 40));
    EXPECT_EQ(Of(VT_UI8, [](VARIANT& v) { V_UI8(&v) = ~0ULL; }), Value("18446744073709551615"));
    EXPECT_EQ(Of(VT_R4, [](VARIANT& v) { V_R4(&v) = 0.1F; }), Value(0.1));
    EXPECT_EQ(Of(VT_R8, [](VARIANT& v) { V_R8(&v) = 0.25; }), Value(0.25));
    EXPECT_EQ(Of(VT_BOOL, [](VARIANT& v) { V_BOOL(&v) = VARIANT_TRUE; }), Value(std::int64_t{1}));
    EXPECT_EQ(Of(VT_BOOL, [](VARIANT& v) { V_BOOL(&v) = VARIANT_FALSE; }), Value(std::int64_t{0}));
    EXPECT_EQ(ToValue(Variant::OfText("项目\xF0\xA0\x80\x80").Get()),
              Value("项目\xF0\xA0\x80\x80"));
    EXPECT_TRUE(Of(VT_NULL, [](VARIANT&) {}).IsNull());
    EXPECT_TRUE(Of(VT_EMPTY, [](VARIANT&) {}).IsNull());
    EXPECT_TRUE(ToValue(Variant::OfObject(nullptr).Get()).IsNull());
}

TEST(ToValue, FollowsReferences) {
    Variant text = Variant::OfText("x");
    VARIANT reference;
    V_VT(&reference) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&reference) = const_cast<VARIANT*>(&text.Get());
    EXPECT_EQ(ToValue(reference), Value("x"));
}

TEST(ToValue, RefusesWhatNoColumnHas) {
    EXPECT_THROW(Of(VT_ERROR, [](VARIANT&) {}), std::invalid_argument);
}

TEST(DateNumbers, CountDaysAndTheirParts) {
    EXPECT_EQ(OfDate(38168), Value(DateTime{2004, 6, 30}));
    EXPECT_EQ(OfDate(38168.5), Value(DateTime{2004, 6, 30, 12}));
    EXPECT_EQ(OfDate(0), Value(DateTime{1899, 12, 30}));
    EXPECT_EQ(OfDate(-1.25), Value(DateTime{1899, 12, 29, 6}));
    EXPECT_EQ(OfDate(-657434), Value(DateTime{100, 1, 1}));
    EXPECT_EQ(OfDate(2958465), Value(DateTime{9999, 12, 31}));
    EXPECT_THROW(OfDate(2958466), std::invalid_argument);
    EXPECT_THROW(OfDate(1e300), std::invalid_argument);
}

TEST(DateNumbers, AreRoundedToThreeHundredths) {
    const auto milliseconds = [](int given) {
        const DateTime date{2004, 6, 30, 23, 59, 58, given};
        return FromDateNumber(ToDateNumber(date));
    };
    EXPECT_EQ(milliseconds(996), (DateTime{2004, 6, 30, 23, 59, 58, 997}));
    EXPECT_EQ(milliseconds(3), (DateTime{2004, 6, 30, 23, 59, 58, 3}));
    EXPECT_EQ(milliseconds(7), (DateTime{2004, 6, 30, 23, 59, 58, 7}));
    EXPECT_EQ(milliseconds(999), (DateTime{2004, 6, 30, 23, 59, 59, 0}));
    EXPECT_EQ(FromDateNumber(ToDateNumber({2004, 6, 30, 23, 59, 59, 999})), (DateTime{2004, 7, 1}));
}

TEST(DateNumbers, GoBothWaysBeforeTheirFirstDay) {
    const DateTime date{100, 1, 1, 18, 30, 15};
    EXPECT_EQ(FromDateNumber(ToDateNumber(date)), date);
}

TEST(ToVariant, WritesEachKindAsItsOwn) {
    EXPECT_EQ(ToVariant(Value()).Type(), VT_NULL);
    EXPECT_EQ(ToVariant(Value("")).Type(), VT_BSTR);
    EXPECT_EQ(ToVariant(Value(std::int64_t{1})).Type(), VT_I4);
    EXPECT_EQ(ToVariant(Value(std::int64_t{1} << 40)).Type(), VT_I8);
    EXPECT_EQ(ToVariant(Value(0.5)).Type(), VT_R8);
    EXPECT_EQ(ToVariant(Value(DateTime{2004, 6, 30})).Type(), VT_DATE);
    const Variant amount = ToVariant(Value(Money::FromUnits(-9223372036854775807)));
    EXPECT_EQ(amount.Type(), VT_CY);
    EXPECT_EQ(V_CY(&amount.Get()).int64, -9223372036854775807);
}

}  // namespace
}  // namespace kelvane::com
