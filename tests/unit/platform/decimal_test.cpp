#include "platform/decimal.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace kelvane::platform {
namespace {

std::string TextOf(std::string_view text) {
    const auto number = Decimal::FromText(text);
    return number ? number->Text() : "no number";
}

std::string RoundedText(std::string_view text, int places, Rounding rule) {
    return Decimal::FromText(text)->Rounded(places, rule).FixedText(places);
}

TEST(DecimalFromText, ReadsWholeTexts) {
    EXPECT_EQ(TextOf("12"), "12");
    EXPECT_EQ(TextOf("  -0012.500 "), "-12.5");
    EXPECT_EQ(TextOf("+.5"), "0.5");
    EXPECT_EQ(TextOf("5."), "5");
    EXPECT_EQ(TextOf("1,234,567.25"), "1234567.25");
    EXPECT_EQ(TextOf("1e3"), "1000");
    EXPECT_EQ(TextOf("12.5E-3"), "0.0125");
    EXPECT_EQ(TextOf("-0"), "0");
    EXPECT_EQ(TextOf("0.000"), "0");
}

TEST(DecimalFromText, RefusesWhatIsNoNumber) {
    for (const char* text : {"", " ", ".", "-", "abc", "12abc", "1 2", "1.2.3", "--1", "1e", "e5",
                             ",5", "1.2,3", "0-5", "1e+", "１２", "1\t"})
        EXPECT_EQ(TextOf(text), "no number") << text;
}

TEST(DecimalFromText, KeepsAnyNumberOfDigits) {
    const std::string digits = "123456789012345678901234567890.123456789012345678901234567891";
    EXPECT_EQ(TextOf(digits), digits);
}

TEST(DecimalLeadingOf, SkipsBlanksAndStopsAtTheFirstOther) {
    EXPECT_EQ(Decimal::LeadingOf("12abc").Text(), "12");
    EXPECT_EQ(Decimal::LeadingOf(" 1 2").Text(), "12");
    EXPECT_EQ(Decimal::LeadingOf("1 12:00").Text(), "112");
    EXPECT_EQ(Decimal::LeadingOf("1,234").Text(), "1");
    EXPECT_EQ(Decimal::LeadingOf("-2.5x").Text(), "-2.5");
    EXPECT_EQ(Decimal::LeadingOf("2e2z").Text(), "200");
    EXPECT_EQ(Decimal::LeadingOf("2ez").Text(), "2");
    EXPECT_EQ(Decimal::LeadingOf("abc").Text(), "0");
    EXPECT_EQ(Decimal::LeadingOf("").Text(), "0");
    EXPECT_EQ(Decimal::LeadingOf("-").Text(), "0");
}

TEST(DecimalRounded, ToEvenAndAwayFromZeroDifferAtHalves) {
    struct Case {
        const char* text;
        int places;
        const char* toEven;
        const char* away;
    };
    for (const Case& each :
         {Case{"0.5", 0, "0", "1"}, Case{"1.5", 0, "2", "2"}, Case{"2.5", 0, "2", "3"},
          Case{"-2.5", 0, "-2", "-3"}, Case{"2.50001", 0, "3", "3"}, Case{"2.4999999", 0, "2", "2"},
          Case{"0.125", 2, "0.12", "0.13"}, Case{"0.135", 2, "0.14", "0.14"},
          Case{"999.995", 2, "1000.00", "1000.00"}, Case{"-0.005", 2, "0.00", "-0.01"},
          Case{"0.05", 0, "0", "0"}, Case{"0.0049", 1, "0.0", "0.0"},
          Case{"7", 3, "7.000", "7.000"}}) {
        EXPECT_EQ(RoundedText(each.text, each.places, Rounding::HalfToEven), each.toEven)
            << each.text;
        EXPECT_EQ(RoundedText(each.text, each.places, Rounding::HalfAwayFromZero), each.away)
            << each.text;
    }
}

TEST(DecimalScaled, AnswersNothingBeyond64Bits) {
    const auto scaled = [](std::string_view text, int places) {
        return Decimal::FromText(text)->Scaled(places, Rounding::HalfToEven);
    };
    EXPECT_EQ(scaled("9223372036854775807", 0), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(scaled("-9223372036854775808", 0), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(scaled("9223372036854775808", 0), std::nullopt);
    EXPECT_EQ(scaled("9223372036854775807.5", 0), std::nullopt);
    EXPECT_EQ(scaled("1e999999999999", 4), std::nullopt);
    EXPECT_EQ(scaled("1e-999999999999", 4), 0);
    EXPECT_EQ(scaled("0e999999999999", 4), 0);
    EXPECT_EQ(scaled("12e2", 2), 120000);
}

TEST(DecimalFromDouble, IsTheShortestThatReadsBack) {
    EXPECT_EQ(Decimal::FromDouble(0.1)->Text(), "0.1");
    EXPECT_EQ(Decimal::FromDouble(-1234.5)->Text(), "-1234.5");
    EXPECT_EQ(Decimal::FromDouble(1e21)->Text(), "1000000000000000000000");
    EXPECT_EQ(Decimal::FromDouble(5e-7)->Text(), "0.0000005");
    EXPECT_EQ(Decimal::FromDouble(-0.0)->Text(), "0");
    EXPECT_EQ(Decimal::FromDouble(std::numeric_limits<double>::infinity()), std::nullopt);
    EXPECT_EQ(Decimal::FromDouble(std::numeric_limits<double>::quiet_NaN()), std::nullopt);
}

}  // namespace
}  // namespace kelvane::platform
