#include "adapters/tsql/values/arithmetic.h"

#include <gtest/gtest.h>

#include <limits>

#include "adapters/tsql/language/errors.h"

namespace kelvane::tsql {
namespace {

constexpr Type kInt{Type::Kind::Int, 0};
constexpr Type kMoney{Type::Kind::Money, 0};
constexpr Type kFloat{Type::Kind::Float, 0};
constexpr std::int64_t kMaxInt = std::numeric_limits<std::int32_t>::max();
constexpr std::int64_t kMinInt = std::numeric_limits<std::int32_t>::min();
constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();

std::int64_t Computed(char op, Type type, std::int64_t a, std::int64_t b) {
    return std::get<std::int64_t>(Arithmetic(op, type, a, b));
}

// The error's number, 0 without one.
int CodeOf(char op, Type type, std::int64_t a, std::int64_t b) {
    try {
        Arithmetic(op, type, a, b);
    } catch (const DatabaseError& error) {
        return error.NativeCode();
    }
    return 0;
}

TEST(Arithmetic, IntegersReachTheirLimitsAndNotMore) {
    EXPECT_EQ(Computed('+', kInt, kMaxInt, kMinInt), -1);
    EXPECT_EQ(Computed('-', kInt, -1, kMinInt), kMaxInt);
    EXPECT_EQ(Computed('*', kInt, kMinInt, 1), kMinInt);
    EXPECT_EQ(Computed('/', kInt, -7, 2), -3);
    EXPECT_EQ(Computed('%', kInt, -7, 2), -1);
    EXPECT_EQ(Computed('%', kInt, kMinInt, -1), 0);
    EXPECT_EQ(CodeOf('+', kInt, kMaxInt, 1), 8115);
    EXPECT_EQ(CodeOf('-', kInt, kMinInt, 1), 8115);
    EXPECT_EQ(CodeOf('*', kInt, kMaxInt, 2), 8115);
    EXPECT_EQ(CodeOf('/', kInt, kMinInt, -1), 8115);
    EXPECT_EQ(CodeOf('/', kInt, 1, 0), 8134);
    EXPECT_EQ(CodeOf('%', kInt, 1, 0), 8134);
}

TEST(Arithmetic, MoneyReachesItsLimitsAndNotMore) {
    EXPECT_EQ(Computed('+', kMoney, kMax - 1, 1), kMax);
    EXPECT_EQ(Computed('-', kMoney, kMin + 1, 1), kMin);
    EXPECT_EQ(Computed('*', kMoney, kMin, 10000), kMin);
    EXPECT_EQ(Computed('/', kMoney, kMin, 10000), kMin);
    EXPECT_EQ(Computed('/', kMoney, kMax, kMax), 10000);
    EXPECT_EQ(Computed('%', kMoney, kMin, -1), 0);
    EXPECT_EQ(CodeOf('+', kMoney, kMax, 1), 8115);
    EXPECT_EQ(CodeOf('-', kMoney, kMin, 1), 8115);
    EXPECT_EQ(CodeOf('*', kMoney, kMax, 20000), 8115);
    EXPECT_EQ(CodeOf('/', kMoney, kMin, -10000), 8115);
    EXPECT_EQ(CodeOf('/', kMoney, kMax, 9999), 8115);
    EXPECT_EQ(CodeOf('/', kMoney, 1, 0), 8134);
}

TEST(Arithmetic, MoneyIsRoundedInProductsAndCutOffInQuotients) {
    EXPECT_EQ(Computed('*', kMoney, 15000, 25000), 37500);
    EXPECT_EQ(Computed('*', kMoney, 3, 5000), 2);
    EXPECT_EQ(Computed('*', kMoney, -5, 5000), -2);
    EXPECT_EQ(Computed('/', kMoney, 20000, 30000), 6666);
    EXPECT_EQ(Computed('/', kMoney, -20000, 30000), -6666);
}

TEST(Arithmetic, FloatsAreNotDividedByZero) {
    EXPECT_EQ(Arithmetic('/', kFloat, 1.0, 4.0), Datum(0.25));
    EXPECT_THROW(Arithmetic('/', kFloat, 1.0, 0.0), DatabaseError);
}

TEST(Arithmetic, NullWithAnythingIsNull) {
    EXPECT_EQ(Arithmetic('/', kMoney, Datum(), std::int64_t{0}), Datum());
    EXPECT_EQ(Arithmetic('+', kInt, std::int64_t{1}, Datum()), Datum());
}

TEST(CheckedSum, IsCheckedForItsType) {
    EXPECT_EQ(CheckedSum(kMaxInt, 1, kMoney), kMaxInt + 1);
    EXPECT_THROW(CheckedSum(kMaxInt, 1, kInt), DatabaseError);
    EXPECT_THROW(CheckedSum(kMin, -1, kMoney), DatabaseError);
}

}  // namespace
}  // namespace kelvane::tsql
