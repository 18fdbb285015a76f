#include "adapters/output/layout/number_text.h"

#include <gtest/gtest.h>

#include "tests/unit/output/sample_sheet.h"

namespace kelvane::output_test {

using output::CellDate;
using output::CellNumber;
using output::ReadNumber;
using platform::ColumnAlignment;
using platform::ColumnKind;

namespace {

std::string Digits(std::string_view text) {
    const auto number = ReadNumber(text);
    return number ? number->digits : "none";
}

TEST(NumberText, ReadsWhatTheGridShows) {
    EXPECT_EQ(Digits("1,234.50"), "1234.50");
    EXPECT_EQ(Digits("-1,234,567.8901"), "-1234567.8901");
    EXPECT_EQ(Digits("0.00"), "0.00");
    EXPECT_EQ(Digits("63.000"), "63.000");
    EXPECT_EQ(Digits("12."), "12");
    EXPECT_EQ(Digits(".5"), "0.5");
    EXPECT_EQ(Digits(" 7 "), "7");
}

TEST(NumberText, TakesNothingElseForANumber) {
    for (const char* text : {"", " ", "-", ".", "007", "1,23", "1234,567", ",123", "12a", "1.2.3",
                             "1e5", "+1", "１２", "0x10", "--1", "1,2345"}) {
        EXPECT_EQ(Digits(text), "none") << text;
    }
}

TEST(NumberText, CountsDigitsAndDecimals) {
    const auto number = ReadNumber("0.0120");
    ASSERT_TRUE(number);
    EXPECT_EQ(number->decimals, 4);
    EXPECT_EQ(number->significant, 3);
    EXPECT_EQ(ReadNumber("922,337,203,685,477.58")->significant, 17);
    EXPECT_EQ(ReadNumber("0.00")->significant, 0);
}

TEST(NumberText, IsANumberOnlyInAColumnOfNumbers) {
    EXPECT_TRUE(CellNumber(Column("期初", 1, ColumnKind::Number), "5"));
    EXPECT_TRUE(CellNumber(Column("余额", 1, ColumnKind::Text, ColumnAlignment::Right), "5"));
    EXPECT_FALSE(CellNumber(Column("编号", 1), "5"));
    EXPECT_FALSE(CellNumber(Column("日期", 1, ColumnKind::Date, ColumnAlignment::Right), "5"));
}

TEST(NumberText, IsADateOnlyInAColumnOfDates) {
    const auto date = CellDate(Column("日期", 1, ColumnKind::Date), "2004.06.30");
    ASSERT_TRUE(date);
    EXPECT_EQ(date->DateText('-'), "2004-06-30");
    EXPECT_FALSE(CellDate(Column("日期", 1, ColumnKind::Date), "2004-06-31"));
    EXPECT_FALSE(CellDate(Column("摘要", 1), "2004-06-30"));
}

}  // namespace

}  // namespace kelvane::output_test
