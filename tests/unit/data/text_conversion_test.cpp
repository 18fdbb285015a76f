#include "data/text_conversion.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "data/sql_text.h"

namespace kelvane::data {
namespace {

TEST(Trim, RemovesBlanksAlone) {
    EXPECT_EQ(Trim("  A 01 "), "A 01");
    EXPECT_EQ(Trim("\tA "), "\tA");
    EXPECT_EQ(Trim("　A"), "　A");
    EXPECT_EQ(Trim("   "), "");
}

TEST(LeadingNumber, SkipsBlanksAndStops) {
    EXPECT_EQ(LeadingNumber("12abc").Text(), "12");
    EXPECT_EQ(LeadingNumber("1 2").Text(), "12");
    EXPECT_EQ(LeadingNumber("abc").Text(), "0");
}

TEST(IsNumericText, LooksAtTheWholeText) {
    for (const char* text : {"12", " 1,234.50 ", "-5", "+.5", "1e3"})
        EXPECT_TRUE(IsNumericText(text)) << text;
    for (const char* text : {"", " ", "12abc", "1 2", "一", "1.2.3"})
        EXPECT_FALSE(IsNumericText(text)) << text;
}

TEST(RoundHalfEven, GoesToTheEvenNeighbour) {
    EXPECT_EQ(RoundHalfEven(LeadingNumber("2.5")), 2);
    EXPECT_EQ(RoundHalfEven(LeadingNumber("3.5")), 4);
    EXPECT_EQ(RoundHalfEven(LeadingNumber("-2.5")), -2);
    EXPECT_THROW(RoundHalfEven(LeadingNumber("1e19")), std::range_error);
}

TEST(ShortInteger, Has16Bits) {
    EXPECT_EQ(ShortInteger(32767), 32767);
    EXPECT_EQ(ShortInteger(-32768), -32768);
    EXPECT_THROW(ShortInteger(32768), std::range_error);
    EXPECT_THROW(ShortInteger(-32769), std::range_error);
    EXPECT_EQ(ShortIntegerOf("12.5"), 12);
    EXPECT_THROW(ShortIntegerOf(""), std::invalid_argument);
    EXPECT_THROW(ShortIntegerOf("12abc"), std::invalid_argument);
    EXPECT_THROW(ShortIntegerOf("40000"), std::range_error);
}

TEST(MoneyOfDisplay, PutsAZeroInFront) {
    EXPECT_EQ(MoneyOfDisplay("").ToText(), "0");
    EXPECT_EQ(MoneyOfDisplay("1,234.50").ToText(), "1234.5");
    EXPECT_EQ(MoneyOfDisplay(".5").ToText(), "0.5");
    EXPECT_EQ(MoneyOfDisplay("12.").ToText(), "12");
    EXPECT_THROW(MoneyOfDisplay("-5"), platform::MoneyTextError);
    EXPECT_THROW(MoneyOfDisplay("abc"), platform::MoneyTextError);
    EXPECT_THROW(MoneyOfDisplay("1e15"), platform::MoneyOverflow);
}

TEST(DoubleOfDisplay, PutsAZeroInFront) {
    EXPECT_EQ(DoubleOfDisplay(""), 0.0);
    EXPECT_EQ(DoubleOfDisplay("1,234.5"), 1234.5);
    EXPECT_THROW(DoubleOfDisplay("-5"), std::invalid_argument);
    EXPECT_THROW(DoubleOfDisplay("1e999"), std::range_error);
}

TEST(SqlText, QuotesWithoutDoublingApostrophes) {
    EXPECT_EQ(SqlText(" A01 ").Text(), "'A01'");
    EXPECT_EQ(SqlText("").Text(), "''");
    EXPECT_EQ(SqlText("it's").Text(), "'it's'");
    EXPECT_THROW((void)SqlText("it's").Checked(), platform::MalformedStatement);
}

}  // namespace
}  // namespace kelvane::data
