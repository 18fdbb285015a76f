#include "entries/summary/exact_sum.h"

#include <gtest/gtest.h>

#include <limits>
#include <tuple>
#include <vector>

namespace kelvane::entries {
namespace {

using platform::Money;

constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kGreatest = std::numeric_limits<std::int64_t>::max();

ExactSum Of(std::int64_t units) {
    return ExactSum(Money::FromUnits(units));
}

// `sum` added to itself so many times over: times 2 to the power of `times`.
ExactSum Doubled(ExactSum sum, int times) {
    for (int time = 0; time < times; ++time) sum += sum;
    return sum;
}

TEST(ExactSum, AnAmountIsItself) {
    EXPECT_EQ(ExactSum().FixedText(), "0.0000");
    EXPECT_EQ(Of(0).FixedText(), "0.0000");
    EXPECT_EQ(Of(1).FixedText(), "0.0001");
    EXPECT_EQ(Of(-1).FixedText(), "-0.0001");
    EXPECT_EQ(Of(-12345).FixedText(), "-1.2345");
    EXPECT_EQ(Of(10000).FixedText(), "1.0000");
    EXPECT_EQ(Of(kGreatest).FixedText(), "922337203685477.5807");
    EXPECT_EQ(Of(kLeast).FixedText(), "-922337203685477.5808");
}

TEST(ExactSum, GoesBeyondWhatAnAmountCanBe) {
    EXPECT_EQ((Of(kGreatest) + Of(1)).FixedText(), "922337203685477.5808");
    EXPECT_EQ((Of(kLeast) - Of(1)).FixedText(), "-922337203685477.5809");
    EXPECT_EQ((Of(kGreatest) + Of(kGreatest)).FixedText(), "1844674407370955.1614");
    EXPECT_EQ((Of(kLeast) + Of(kLeast)).FixedText(), "-1844674407370955.1616");
    EXPECT_EQ((Of(kGreatest) - Of(kLeast)).FixedText(), "1844674407370955.1615");
    EXPECT_EQ((Of(kLeast) - Of(kGreatest)).FixedText(), "-1844674407370955.1615");
}

TEST(ExactSum, CarriesAndBorrowsBetweenItsHalves) {
    // 2^64 ten-thousandths, from below and from above.
    const ExactSum boundary = Doubled(Of(1), 64);
    EXPECT_EQ(boundary.FixedText(), "1844674407370955.1616");
    EXPECT_EQ((boundary - Of(1)).FixedText(), "1844674407370955.1615");
    EXPECT_EQ((boundary - Of(1)) + Of(1), boundary);
    EXPECT_EQ((boundary + Of(-1)) - Of(-1), boundary);
    EXPECT_EQ(Of(0) - boundary, Doubled(Of(-1), 64));
    EXPECT_EQ((Of(0) - boundary).FixedText(), "-1844674407370955.1616");
    EXPECT_EQ((Of(-1) + Of(1)), ExactSum());
    EXPECT_EQ((Of(0) - Of(1)), Of(-1));
    EXPECT_EQ((Of(1) - Of(1)).FixedText(), "0.0000");
    ExactSum itself = boundary - Of(1);
    const ExactSum& same = itself;
    itself -= same;
    EXPECT_EQ(itself, ExactSum());
}

TEST(ExactSum, IsExactForLongSums) {
    // 2^126, and the least there is: -2^127.
    EXPECT_EQ(Doubled(Of(1), 126).FixedText(), "8507059173023461586584365185794205.2864");
    EXPECT_EQ(Doubled(Of(-1), 127).FixedText(), "-17014118346046923173168730371588410.5728");
    EXPECT_EQ(Doubled(Of(10'000'000'000'000'000), 10).FixedText(), "1024000000000000.0000");
    // Ten-thousandths that are 10^36: parts of the digits are nothing but zeros.
    ExactSum tens = Of(1'000'000'000'000'000'000);
    for (int times = 0; times < 18; ++times) {
        const ExactSum once = tens;
        tens = Doubled(tens, 3) + once + once;
    }
    EXPECT_EQ(tens.FixedText(), "100000000000000000000000000000000.0000");
    ExactSum all;
    for (int times = 0; times < 100000; ++times) all += Of(kLeast);
    EXPECT_EQ(all.FixedText(), "-92233720368547758080.0000");
    for (int times = 0; times < 100000; ++times) all -= Of(kLeast);
    EXPECT_TRUE(all.IsZero());
}

TEST(ExactSum, IsOrdered) {
    const std::vector<ExactSum> ascending{Doubled(Of(-1), 100),
                                          Doubled(Of(-1), 64),
                                          Of(kLeast),
                                          Of(-2),
                                          Of(-1),
                                          Of(0),
                                          Of(1),
                                          Of(kGreatest),
                                          Doubled(Of(1), 63),
                                          Doubled(Of(1), 64),
                                          Doubled(Of(1), 100)};
    for (std::size_t a = 0; a < ascending.size(); ++a) {
        for (std::size_t b = 0; b < ascending.size(); ++b) {
            EXPECT_EQ(ascending[a] <=> ascending[b], a <=> b) << a << " " << b;
            EXPECT_EQ(ascending[a] == ascending[b], a == b) << a << " " << b;
        }
        EXPECT_EQ(ascending[a].IsNegative(), ascending[a] < ExactSum());
    }
}

TEST(ExactSum, IsShownGroupedAndNeverInPart) {
    using Case = std::tuple<std::int64_t, const char*>;
    for (const auto& [units, text] :
         {Case{0, "0.00"}, Case{1, "0.0001"}, Case{-100, "-0.01"}, Case{-110, "-0.0110"},
          Case{9'990'000, "999.00"}, Case{10'000'000, "1,000.00"}, Case{-12'345'000, "-1,234.50"},
          Case{12'345'678, "1,234.5678"}, Case{1'234'567'890'000, "123,456,789.00"},
          Case{kLeast, "-922,337,203,685,477.5808"}}) {
        EXPECT_EQ(Of(units).DisplayText(), text);
    }
    EXPECT_EQ(Doubled(Of(10000), 64).DisplayText(), "18,446,744,073,709,551,616.00");
}

}  // namespace
}  // namespace kelvane::entries
