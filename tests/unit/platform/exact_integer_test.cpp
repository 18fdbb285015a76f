#include "platform/exact_integer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

namespace kelvane::platform {
namespace {

constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();
constexpr std::uint64_t kAll = std::numeric_limits<std::uint64_t>::max();
constexpr std::uint64_t kTop = std::uint64_t{1} << 63;

// Numbers at whose neighbours carries and estimates change.
constexpr std::array<std::uint64_t, 21> kEdges = {0,
                                                  1,
                                                  2,
                                                  3,
                                                  9999,
                                                  10000,
                                                  10001,
                                                  0x7FFFFFFF,
                                                  0x80000000,
                                                  0xFFFFFFFE,
                                                  0xFFFFFFFF,
                                                  0x100000000,
                                                  0x100000001,
                                                  0x7FFFFFFFFFFFFFFF,
                                                  0x8000000000000000,
                                                  0x8000000000000001,
                                                  0x80000000FFFFFFFF,
                                                  0xFFFFFFFF00000000,
                                                  0xFFFFFFFF00000001,
                                                  0xFFFFFFFFFFFFFFFE,
                                                  0xFFFFFFFFFFFFFFFF};

// Long-hand arithmetic: decimal digits, the lowest first, without zeros in front.
using Digits = std::vector<int>;

void Carry(Digits& digits) {
    for (std::size_t place = 0; place + 1 < digits.size(); ++place) {
        digits[place + 1] += digits[place] / 10;
        digits[place] %= 10;
    }
    while (!digits.empty() && digits.back() == 0) digits.pop_back();
}

Digits LongHand(std::uint64_t number) {
    Digits digits;
    for (; number != 0; number /= 10) digits.push_back(static_cast<int>(number % 10));
    return digits;
}

Digits Product(const Digits& a, const Digits& b) {
    Digits product(a.size() + b.size() + 1);
    for (std::size_t i = 0; i < a.size(); ++i) {
        for (std::size_t j = 0; j < b.size(); ++j) product[i + j] += a[i] * b[j];
    }
    Carry(product);
    return product;
}

Digits Sum(const Digits& a, const Digits& b) {
    Digits sum(std::max(a.size(), b.size()) + 1);
    for (std::size_t place = 0; place < a.size(); ++place) sum[place] += a[place];
    for (std::size_t place = 0; place < b.size(); ++place) sum[place] += b[place];
    Carry(sum);
    return sum;
}

Digits LongHand(const Wide& number) {
    const Digits base = Sum(LongHand(kAll), {1});
    return Sum(Product(LongHand(number.high), base), LongHand(number.low));
}

// Numbers of every length, and neighbours of powers of two.
class Numbers {
public:
    explicit Numbers(unsigned seed) : mRandom(seed) {}

    std::uint64_t Next() {
        const std::uint64_t drawn = mRandom();
        const auto shift = static_cast<int>(mRandom() % 64);
        switch (mRandom() % 4) {
            case 0:
                return kEdges[drawn % kEdges.size()];
            case 1:
                return (std::uint64_t{1} << shift) + drawn % 5 - 2;
            default:
                return drawn >> shift;
        }
    }
    std::int64_t NextSigned() { return static_cast<std::int64_t>(Next()); }

private:
    std::mt19937_64 mRandom;
};

void ExpectProduct(std::uint64_t a, std::uint64_t b) {
    const Wide product = WideProduct(a, b);
    EXPECT_EQ(LongHand(product), Product(LongHand(a), LongHand(b))) << a << " * " << b;
    EXPECT_EQ(product, WideProduct(b, a));
}

// Dividing gives the dividend back: quotient times divisor plus a smaller remainder.
void ExpectQuotient(const Wide& dividend, std::uint64_t divisor) {
    const auto division = WideQuotient(dividend, divisor);
    ASSERT_EQ(division.has_value(), dividend.high < divisor);
    if (!division) return;
    EXPECT_LT(division->remainder, divisor);
    EXPECT_EQ(Sum(Product(LongHand(division->quotient), LongHand(divisor)),
                  LongHand(division->remainder)),
              LongHand(dividend))
        << dividend.high << ':' << dividend.low << " / " << divisor;
}

TEST(WideProduct, CarriesBetweenTheHalves) {
    EXPECT_EQ(WideProduct(0, kAll), (Wide{0, 0}));
    EXPECT_EQ(WideProduct(1, kAll), (Wide{0, kAll}));
    EXPECT_EQ(WideProduct(2, kTop), (Wide{1, 0}));
    EXPECT_EQ(WideProduct(0xFFFFFFFF, 0xFFFFFFFF), (Wide{0, 0xFFFFFFFE00000001}));
    EXPECT_EQ(WideProduct(0x100000000, 0x100000000), (Wide{1, 0}));
    EXPECT_EQ(WideProduct(kAll, kAll), (Wide{kAll - 1, 1}));
    EXPECT_EQ(WideProduct(kTop, kTop), (Wide{kTop >> 1, 0}));
}

TEST(WideProduct, IsTheLongHandProduct) {
    for (const std::uint64_t a : kEdges) {
        for (const std::uint64_t b : kEdges) ExpectProduct(a, b);
    }
    Numbers numbers(1);
    for (int round = 0; round < 5000; ++round) ExpectProduct(numbers.Next(), numbers.Next());
}

TEST(Wide, IsOrderedByItsUpperHalfFirst) {
    EXPECT_LT((Wide{0, kAll}), (Wide{1, 0}));
    EXPECT_LT((Wide{1, 0}), (Wide{1, 1}));
    EXPECT_EQ((Wide{1, 1}), (Wide{1, 1}));
}

TEST(WideQuotient, DividesByNumbersOfEveryLength) {
    EXPECT_EQ(WideQuotient({0, 7}, 2), (Division{3, 1}));
    EXPECT_EQ(WideQuotient({1, 0}, 2), (Division{kTop, 0}));
    EXPECT_EQ(WideQuotient({9999, kAll}, 10000), (Division{kAll, 9999}));
    EXPECT_EQ(WideQuotient({kAll - 1, 1}, kAll), (Division{kAll, 0}));
    EXPECT_EQ(WideQuotient({kAll - 1, kAll}, kAll), (Division{kAll, kAll - 1}));
    EXPECT_EQ(WideQuotient({kTop - 1, kAll}, kTop), (Division{kAll, kTop - 1}));
}

TEST(WideQuotient, IsNothingWhenItDoesNotFit) {
    EXPECT_EQ(WideQuotient({1, 0}, 1), std::nullopt);
    EXPECT_EQ(WideQuotient({10000, 0}, 10000), std::nullopt);
    EXPECT_EQ(WideQuotient({kAll, 0}, kAll), std::nullopt);
    EXPECT_EQ(WideQuotient({0, 0}, 0), std::nullopt);
    EXPECT_EQ(WideQuotient({0, 1}, 0), std::nullopt);
}

TEST(WideQuotient, GivesTheDividendBack) {
    for (const std::uint64_t high : kEdges) {
        for (const std::uint64_t low : kEdges) {
            for (const std::uint64_t divisor : kEdges) ExpectQuotient({high, low}, divisor);
        }
    }
    Numbers numbers(2);
    for (int round = 0; round < 5000; ++round) {
        const std::uint64_t divisor = numbers.Next();
        ExpectQuotient({divisor == 0 ? 0 : numbers.Next() % divisor, numbers.Next()}, divisor);
    }
}

TEST(ExactSum, ReachesTheLimitsAndNotMore) {
    static_assert(ExactSum(2, -5) == -3);
    EXPECT_EQ(ExactSum(kMax, 0), kMax);
    EXPECT_EQ(ExactSum(kMin, 0), kMin);
    EXPECT_EQ(ExactSum(kMin, kMax), -1);
    EXPECT_EQ(ExactSum(kMax - 1, 1), kMax);
    EXPECT_EQ(ExactSum(kMax, 1), std::nullopt);
    EXPECT_EQ(ExactSum(kMin, -1), std::nullopt);
    EXPECT_EQ(ExactSum(kMin, kMin), std::nullopt);
    EXPECT_EQ(ExactSum(kMax, kMax), std::nullopt);
}

TEST(ExactDifference, ReachesTheLimitsAndNotMore) {
    static_assert(ExactDifference(2, 5) == -3);
    EXPECT_EQ(ExactDifference(kMin, kMin), 0);
    EXPECT_EQ(ExactDifference(-1, kMin), kMax);
    EXPECT_EQ(ExactDifference(0, kMax), kMin + 1);
    EXPECT_EQ(ExactDifference(0, kMin), std::nullopt);
    EXPECT_EQ(ExactDifference(kMin, 1), std::nullopt);
    EXPECT_EQ(ExactDifference(kMax, -1), std::nullopt);
    EXPECT_EQ(ExactDifference(kMax, kMin), std::nullopt);
}

TEST(ExactSum, UndoesTheDifferenceWhereBothFit) {
    Numbers numbers(3);
    for (int round = 0; round < 5000; ++round) {
        const std::int64_t a = numbers.NextSigned();
        const std::int64_t b = numbers.NextSigned();
        const auto sum = ExactSum(a, b);
        EXPECT_EQ(sum, ExactSum(b, a));
        EXPECT_EQ(sum.has_value(), b < 0 ? a >= kMin - b : a <= kMax - b) << a << " + " << b;
        if (sum) {
            EXPECT_EQ(ExactDifference(*sum, b), a);
        }
        const auto difference = ExactDifference(a, b);
        EXPECT_EQ(difference.has_value(), b < 0 ? a <= kMax + b : a >= kMin + b) << a << " - " << b;
        if (difference) {
            EXPECT_EQ(ExactSum(*difference, b), a);
        }
    }
}

TEST(ExactProduct, ReachesTheLimitsAndNotMore) {
    EXPECT_EQ(ExactProduct(-3, 7), -21);
    EXPECT_EQ(ExactProduct(-3, -7), 21);
    EXPECT_EQ(ExactProduct(kMin, 0), 0);
    EXPECT_EQ(ExactProduct(kMin, 1), kMin);
    EXPECT_EQ(ExactProduct(kMax, -1), kMin + 1);
    EXPECT_EQ(ExactProduct(kMin, -1), std::nullopt);
    EXPECT_EQ(ExactProduct(std::int64_t{1} << 32, -(std::int64_t{1} << 31)), kMin);
    EXPECT_EQ(ExactProduct(std::int64_t{1} << 32, std::int64_t{1} << 31), std::nullopt);
    EXPECT_EQ(ExactProduct(kMin, kMin), std::nullopt);
    EXPECT_EQ(ExactProduct(kMax, kMax), std::nullopt);
}

TEST(ExactQuotient, CutsOffTowardsZero) {
    const auto quotient = [](std::int64_t a, std::int64_t b, std::int64_t divisor) {
        return ExactQuotient(a, b, divisor, Remainder::CutOff);
    };
    EXPECT_EQ(quotient(7, 1, 2), 3);
    EXPECT_EQ(quotient(-7, 1, 2), -3);
    EXPECT_EQ(quotient(7, 1, -2), -3);
    EXPECT_EQ(quotient(-7, -1, -2), -3);
    EXPECT_EQ(quotient(-7, 1, -2), 3);
    EXPECT_EQ(quotient(kMax, kMax, kMax), kMax);
    EXPECT_EQ(quotient(kMin, kMin, kMin), kMin);
    EXPECT_EQ(quotient(kMin, 1, -1), std::nullopt);
    EXPECT_EQ(quotient(kMax, 10000, 9999), std::nullopt);
    EXPECT_EQ(quotient(5, 5, 0), std::nullopt);
}

TEST(ExactQuotient, RoundsHalfToEven) {
    const auto quotient = [](std::int64_t a, std::int64_t b, std::int64_t divisor) {
        return ExactQuotient(a, b, divisor, Remainder::RoundedHalfToEven);
    };
    EXPECT_EQ(quotient(1, 1, 2), 0);
    EXPECT_EQ(quotient(3, 1, 2), 2);
    EXPECT_EQ(quotient(5, 1, 2), 2);
    EXPECT_EQ(quotient(-3, 1, 2), -2);
    EXPECT_EQ(quotient(5, 1, -2), -2);
    EXPECT_EQ(quotient(14999, 1, 10000), 1);
    EXPECT_EQ(quotient(15001, 1, 10000), 2);
    EXPECT_EQ(quotient(-25000, 1, 10000), -2);
    EXPECT_EQ(quotient(-25001, 1, 10000), -3);
    // An odd divisor has no half.
    EXPECT_EQ(quotient(kMax - 1, 1, kMax), 1);
    EXPECT_EQ(quotient(kMax / 2, 1, kMax), 0);
    EXPECT_EQ(quotient(kMax / 2 + 1, 1, kMax), 1);
    // The divisor's magnitude has the highest bit.
    EXPECT_EQ(quotient(kMin / 2, 1, kMin), 0);
    EXPECT_EQ(quotient(kMin / 2 - 1, 1, kMin), 1);
    EXPECT_EQ(quotient(kMin / 2, 3, kMin), 2);
}

TEST(ExactQuotient, ALimitIsNotRoundedAcross) {
    const auto quotient = [](std::int64_t a, std::int64_t b, std::int64_t divisor) {
        return ExactQuotient(a, b, divisor, Remainder::RoundedHalfToEven);
    };
    // The quotients here lie at 2^63.
    const std::int64_t half = std::int64_t{1} << 62;
    EXPECT_EQ(quotient(half, 6, -3), kMin);
    EXPECT_EQ(quotient(half, 6, 3), std::nullopt);
    // 2^63 - 1/2, whose even neighbour is 2^63.
    const std::int64_t thirdOfAll = 6148914691236517205;  // 3 * it = 2^64 - 1
    EXPECT_EQ(quotient(thirdOfAll, 3, 2), std::nullopt);
    EXPECT_EQ(quotient(thirdOfAll, 3, -2), kMin);
    EXPECT_EQ(quotient(thirdOfAll - 1, 3, 2), kMax - 1);
}

TEST(ExactQuotient, ErrsByLessThanOneOrAtMostHalf) {
    Numbers numbers(4);
    int fitted = 0;
    for (int round = 0; round < 5000; ++round) {
        const std::int64_t a = numbers.NextSigned() >> (round % 40);
        const std::int64_t b = numbers.NextSigned() >> (round % 24);
        const std::int64_t divisor = numbers.NextSigned();
        const auto cut = ExactQuotient(a, b, divisor, Remainder::CutOff);
        const auto rounded = ExactQuotient(a, b, divisor, Remainder::RoundedHalfToEven);
        if (!cut || !rounded || *cut == kMin || *rounded == kMin || divisor == kMin) continue;
        if (a == kMin || b == kMin) continue;
        ++fitted;
        // On magnitudes: cut * divisor <= a * b < (cut + 1) * divisor.
        const auto positive = [](std::int64_t number) {
            return static_cast<std::uint64_t>(number < 0 ? -number : number);
        };
        const Wide product = WideProduct(positive(a), positive(b));
        const Wide below = WideProduct(positive(*cut), positive(divisor));
        const Wide above = WideProduct(positive(*cut) + 1, positive(divisor));
        EXPECT_LE(below, product);
        EXPECT_LT(product, above);
        // The nearer neighbour, and of two equally near ones the even one.
        const std::uint64_t under = product.low - below.low;
        const std::uint64_t over = above.low - product.low;
        const bool goesUp = under > over || (under == over && positive(*cut) % 2 != 0);
        EXPECT_EQ(positive(*rounded), positive(*cut) + (goesUp ? 1 : 0))
            << a << " * " << b << " / " << divisor;
        if (*cut != 0) {
            EXPECT_EQ(*cut < 0, ((a < 0) != (b < 0)) != (divisor < 0));
        }
    }
    EXPECT_GT(fitted, 1000);
}

}  // namespace
}  // namespace kelvane::platform
