#include "data/number_format.h"

#include <gtest/gtest.h>

#include "data/login_context.h"
#include "tests/support/login_context_reset.h"

namespace kelvane::data {
namespace {

using platform::DateTime;
using platform::Decimal;
using platform::Money;
using platform::Value;

class NumberFormat : public testing::Test {
protected:
    void SetUp() override {
        gNumPointPrice = 4;
        gNumPointQty = 3;
        gNumPointRate = 1;
    }
    void TearDown() override { support::ResetLoginContext(); }
};

TEST_F(NumberFormat, EachKindHasItsDecimals) {
    const Value value("1234.5");
    EXPECT_EQ(NumFormatText(value, kPriceKind, false), "1234.5000");
    EXPECT_EQ(NumFormatText(value, kQuantityKind, false), "1234.500");
    EXPECT_EQ(NumFormatText(value, kMoneyKind, true), "1,234.50");
    EXPECT_EQ(NumFormatText(value, kRateKind, true), "1,234.5");
    EXPECT_EQ(NumFormatText(value, 0, true), "1,234.50");
    EXPECT_EQ(NumFormatText(value, 9, false), "1234.50");
}

TEST_F(NumberFormat, WithoutDecimalsThePointStays) {
    gNumPointQty = 0;
    EXPECT_EQ(NumFormatText(Value(std::int64_t{1234}), kQuantityKind, false), "1234.");
    EXPECT_EQ(NumFormatText(Value(std::int64_t{1234}), kQuantityKind, true), "1,234.");
    EXPECT_EQ(NumFormatText(Value("0.4"), kQuantityKind, true), "0.");
    gNumPointQty = -3;
    EXPECT_EQ(NumFormatText(Value("12"), kQuantityKind, false), "12.");
}

TEST_F(NumberFormat, NullAndBlankTextsAreEmpty) {
    EXPECT_EQ(NumFormatText(Value(), kMoneyKind, true), "");
    EXPECT_EQ(NumFormatText(Value(""), kMoneyKind, true), "");
    EXPECT_EQ(NumFormatText(Value(" "), kMoneyKind, true), "");
}

TEST_F(NumberFormat, OtherTextsAndDatesComeBack) {
    EXPECT_EQ(NumFormatText(Value("无"), kMoneyKind, true), "无");
    EXPECT_EQ(NumFormatText(Value("12 元"), kMoneyKind, true), "12 元");
    EXPECT_EQ(NumFormatText(Value(DateTime{2004, 7, 1}), kMoneyKind, true), "2004-07-01");
}

TEST_F(NumberFormat, RoundsHalfAwayFromZero) {
    EXPECT_EQ(NumFormatText(Value(Money::FromText("999.995")), kMoneyKind, true), "1,000.00");
    EXPECT_EQ(NumFormatText(Value(Money::FromText("-0.005")), kMoneyKind, true), "-0.01");
    EXPECT_EQ(NumFormatText(Value(Money::FromText("-0.0049")), kMoneyKind, true), "0.00");
    EXPECT_EQ(NumFormatText(Value(1.005), kMoneyKind, true), "1.01");
    EXPECT_EQ(NumFormatText(Value("2.675"), kMoneyKind, true), "2.68");
}

TEST_F(NumberFormat, GroupsByThousands) {
    EXPECT_EQ(NumFormatText(Value("0"), kMoneyKind, true), "0.00");
    EXPECT_EQ(NumFormatText(Value("100"), kMoneyKind, true), "100.00");
    EXPECT_EQ(NumFormatText(Value("-100"), kMoneyKind, true), "-100.00");
    EXPECT_EQ(NumFormatText(Value("-1000"), kMoneyKind, true), "-1,000.00");
    EXPECT_EQ(NumFormatText(Value("1234567.891"), kMoneyKind, true), "1,234,567.89");
    EXPECT_EQ(NumFormatText(Value("1,234,567.891"), kMoneyKind, false), "1234567.89");
}

TEST_F(NumberFormat, IsExactAtAnyLength) {
    EXPECT_EQ(NumFormatText(Value("12345678901234567890123.455"), kMoneyKind, true),
              "12,345,678,901,234,567,890,123.46");
    EXPECT_EQ(NumFormatText(Value(Money::FromText("922337203685477.5807")), kMoneyKind, true),
              "922,337,203,685,477.58");
    EXPECT_EQ(NumFormatText(Value("1e3"), kMoneyKind, true), "1,000.00");
}

TEST(FormatDecimal, ShowsNegativePlacesAsNone) {
    EXPECT_EQ(FormatDecimal(Decimal(-1234567), -1, true), "-1,234,567.");
}

}  // namespace
}  // namespace kelvane::data
