#include "platform/value.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

namespace kelvane::platform {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(ValueToText, ConvertsAsTheDialectDoes) {
    EXPECT_EQ(Value().ToText(), "");
    EXPECT_EQ(Value(std::int64_t{-12}).ToText(), "-12");
    EXPECT_EQ(Value(0.1).ToText(), "0.1");
    EXPECT_EQ(Value(12.0).ToText(), "12");
    EXPECT_EQ(Value(Money::FromText("1234.50")).ToText(), "1234.5");
    EXPECT_EQ(Value(DateTime{2004, 7, 1}).ToText(), "2004-07-01");
    EXPECT_EQ(Value(DateTime{2004, 7, 1, 8}).ToText(), "2004-07-01 08:00:00.000");
    EXPECT_EQ(Value(" 期初 ").ToText(), " 期初 ");
    EXPECT_THROW((void)Value(kInfinity).ToText(), std::range_error);
}

TEST(ValueToInteger, RoundsHalfToEvenAndReadsLeadingNumbers) {
    EXPECT_EQ(Value().ToInteger(), 0);
    EXPECT_EQ(Value("").ToInteger(), 0);
    EXPECT_EQ(Value("abc").ToInteger(), 0);
    EXPECT_EQ(Value("12abc").ToInteger(), 12);
    EXPECT_EQ(Value("2.5").ToInteger(), 2);
    EXPECT_EQ(Value(3.5).ToInteger(), 4);
    EXPECT_EQ(Value(Money::FromText("-2.5")).ToInteger(), -2);
    EXPECT_EQ(Value(std::numeric_limits<std::int64_t>::max()).ToInteger(),
              std::numeric_limits<std::int64_t>::max());
    EXPECT_THROW((void)Value("9223372036854775808").ToInteger(), std::range_error);
    EXPECT_THROW((void)Value(1e19).ToInteger(), std::range_error);
    EXPECT_THROW((void)Value(DateTime{}).ToInteger(), std::invalid_argument);
}

TEST(ValueToMoney, IsExactOrAnError) {
    EXPECT_EQ(Value().ToMoney(), Money());
    EXPECT_EQ(Value("").ToMoney(), Money());
    EXPECT_EQ(Value("1,000.5").ToMoney().ToText(), "1000.5");
    EXPECT_EQ(Value(0.1).ToMoney().ToText(), "0.1");
    EXPECT_EQ(Value(0.00025).ToMoney().ToText(), "0.0002");
    EXPECT_EQ(Value(std::int64_t{7}).ToMoney().ToText(), "7");
    EXPECT_THROW((void)Value("12abc").ToMoney(), MoneyTextError);
    EXPECT_THROW((void)Value(1e300).ToMoney(), MoneyOverflow);
    EXPECT_THROW((void)Value(kInfinity).ToMoney(), MoneyOverflow);
    EXPECT_THROW((void)Value(DateTime{}).ToMoney(), MoneyTextError);
}

TEST(ValueToDouble, ReadsLeadingNumbers) {
    EXPECT_EQ(Value().ToDouble(), 0.0);
    EXPECT_EQ(Value("1.25 x").ToDouble(), 1.25);
    EXPECT_EQ(Value("x").ToDouble(), 0.0);
    EXPECT_EQ(Value(Money::FromText("0.1")).ToDouble(), 0.1);
    EXPECT_EQ(Value(2.5).ToDouble(), 2.5);
    EXPECT_THROW((void)Value("1e999").ToDouble(), std::range_error);
    EXPECT_THROW((void)Value(DateTime{}).ToDouble(), std::invalid_argument);
}

TEST(ValueToDateTime, TakesDatesAndDateTexts) {
    EXPECT_EQ(Value(DateTime{2004, 7, 1, 8}).ToDateTime(), (DateTime{2004, 7, 1, 8}));
    EXPECT_EQ(Value("2004/7/1").ToDateTime(), (DateTime{2004, 7, 1}));
    EXPECT_THROW((void)Value().ToDateTime(), std::invalid_argument);
    EXPECT_THROW((void)Value("x").ToDateTime(), std::invalid_argument);
    EXPECT_THROW((void)Value(std::int64_t{38000}).ToDateTime(), std::invalid_argument);
}

TEST(ValueComparison, KindsDiffer) {
    EXPECT_EQ(Value(), Value());
    EXPECT_NE(Value("1"), Value(std::int64_t{1}));
    EXPECT_NE(Value(""), Value());
    EXPECT_TRUE(Value().IsNull());
    EXPECT_FALSE(Value("").IsNull());
}

}  // namespace
}  // namespace kelvane::platform
