#include "platform/money.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <random>

namespace kelvane::platform {
namespace {

constexpr Money kMax = Money::FromUnits(std::numeric_limits<std::int64_t>::max());
constexpr Money kMin = Money::FromUnits(std::numeric_limits<std::int64_t>::min());
constexpr Money kTick = Money::FromUnits(1);

TEST(MoneyText, ReadsDisplayAndDatabaseTexts) {
    EXPECT_EQ(Money::FromText("1,234.50").Units(), 12345000);
    EXPECT_EQ(Money::FromText("-.5").Units(), -5000);
    EXPECT_EQ(Money::FromText(" 1e3 ").Units(), 10000000);
    EXPECT_EQ(Money::FromText("0").Units(), 0);
    EXPECT_EQ(Money::FromText("01,234.5000").Units(), 12345000);
}

TEST(MoneyText, RoundsHalfToEvenAtTheFourthDecimal) {
    EXPECT_EQ(Money::FromText("0.00005").Units(), 0);
    EXPECT_EQ(Money::FromText("0.00015").Units(), 2);
    EXPECT_EQ(Money::FromText("0.00025").Units(), 2);
    EXPECT_EQ(Money::FromText("-0.00035").Units(), -4);
    EXPECT_EQ(Money::FromText("0.000250000000000000000000001").Units(), 3);
}

TEST(MoneyText, RefusesOtherTexts) {
    for (const char* text : {"", "abc", "0-5", "1.2.3", "１００", "1 000"})
        EXPECT_THROW(Money::FromText(text), MoneyTextError) << text;
}

TEST(MoneyText, HoldsTheWholeRangeAndNotMore) {
    EXPECT_EQ(Money::FromText("922337203685477.5807"), kMax);
    EXPECT_EQ(Money::FromText("-922337203685477.5808"), kMin);
    EXPECT_THROW(Money::FromText("922337203685477.5808"), MoneyOverflow);
    EXPECT_THROW(Money::FromText("922337203685477.58075"), MoneyOverflow);
    EXPECT_THROW(Money::FromText("1e15"), MoneyOverflow);
    EXPECT_THROW(Money::FromText("1e999999999"), MoneyOverflow);
}

TEST(MoneyText, WritesPlainDecimals) {
    EXPECT_EQ(Money::FromUnits(12345000).ToText(), "1234.5");
    EXPECT_EQ(Money::FromUnits(-1).ToText(), "-0.0001");
    EXPECT_EQ(Money::FromUnits(120000).ToText(), "12");
    EXPECT_EQ(Money::FromUnits(100000000).ToText(), "10000");
    EXPECT_EQ(Money().ToText(), "0");
    EXPECT_EQ(Money::FromUnits(12345000).ToFixedText(), "1234.5000");
    EXPECT_EQ(Money().ToFixedText(), "0.0000");
    EXPECT_EQ(kMin.ToText(), "-922337203685477.5808");
}

TEST(MoneyText, ReadsBackWhatItWrites) {
    std::mt19937_64 random(1);
    for (int round = 0; round < 2000; ++round) {
        const Money amount = Money::FromUnits(static_cast<std::int64_t>(random()) >> (round % 63));
        EXPECT_EQ(Money::FromText(amount.ToText()), amount);
        EXPECT_EQ(Money::FromText(amount.ToFixedText()), amount);
    }
}

TEST(MoneyFromInteger, Overflows) {
    EXPECT_EQ(Money::FromInteger(-7).Units(), -70000);
    EXPECT_EQ(Money::FromInteger(922337203685477).ToText(), "922337203685477");
    EXPECT_THROW(Money::FromInteger(922337203685478), MoneyOverflow);
    EXPECT_THROW(Money::FromInteger(std::numeric_limits<std::int64_t>::min()), MoneyOverflow);
}

TEST(MoneyArithmetic, SumsExactly) {
    Money sum;
    for (int count = 0; count < 1000; ++count) sum += Money::FromText("0.1");
    EXPECT_EQ(sum, Money::FromInteger(100));
    EXPECT_EQ(Money::FromText("1000") - Money::FromText("400.01"), Money::FromText("599.99"));
}

TEST(MoneyArithmetic, OverflowsInsteadOfWrapping) {
    EXPECT_EQ(kMax + Money(), kMax);
    EXPECT_THROW(kMax + kTick, MoneyOverflow);
    EXPECT_THROW(kMin - kTick, MoneyOverflow);
    EXPECT_THROW(Money() - kMin, MoneyOverflow);
    EXPECT_THROW(kMax * Money::FromInteger(2), MoneyOverflow);
    EXPECT_THROW(kMin * Money::FromInteger(-1), MoneyOverflow);
    EXPECT_EQ(kMin * Money::FromInteger(1), kMin);
    Money unchanged = kMax;
    EXPECT_THROW(unchanged += kTick, MoneyOverflow);
    EXPECT_EQ(unchanged, kMax);
}

TEST(MoneyArithmetic, MultipliesHalfToEven) {
    const auto product = [](const char* a, const char* b) {
        return (Money::FromText(a) * Money::FromText(b)).ToText();
    };
    EXPECT_EQ(product("12.5", "8"), "100");
    EXPECT_EQ(product("0.0001", "0.5"), "0");
    EXPECT_EQ(product("0.0003", "0.5"), "0.0002");
    EXPECT_EQ(product("0.0005", "0.5"), "0.0002");
    EXPECT_EQ(product("-0.0003", "0.5"), "-0.0002");
    EXPECT_EQ(product("-0.0005", "0.5"), "-0.0002");
    EXPECT_EQ(product("0.0005", "0.5001"), "0.0003");
    EXPECT_EQ(product("-0.0005", "-0.5001"), "0.0003");
}

TEST(MoneyArithmetic, ProductErrsByAtMostHalfATick) {
    std::mt19937_64 random(2);
    std::uniform_int_distribution<std::int64_t> units(-2'000'000'000, 2'000'000'000);
    for (int round = 0; round < 2000; ++round) {
        const Money a = Money::FromUnits(units(random));
        const Money b = Money::FromUnits(units(random));
        const std::int64_t exact = a.Units() * b.Units();
        const std::int64_t error = exact - (a * b).Units() * Money::kUnitsPerOne;
        EXPECT_LE(std::abs(error) * 2, Money::kUnitsPerOne);
        EXPECT_EQ(a * b, b * a);
    }
}

}  // namespace
}  // namespace kelvane::platform
