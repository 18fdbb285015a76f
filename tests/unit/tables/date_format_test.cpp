#include "adapters/tables/date_format.h"

#include <gtest/gtest.h>

namespace kelvane::tables {
namespace {

std::string Day(const char* number, DateSystem system = DateSystem::From1900) {
    const platform::DateTime date = DateOfNumber(number, system);
    return date.IsValid() ? date.FullText().substr(0, 19) : "none";
}

TEST(DateFormat, KnowsTheBuiltInOnes) {
    for (const int number : {14, 17, 22, 27, 31, 36, 45, 47, 50, 57, 58}) {
        EXPECT_TRUE(IsBuiltInDateFormat(number)) << number;
    }
    for (const int number : {0, 1, 4, 10, 13, 23, 26, 37, 44, 48, 49, 59, 164}) {
        EXPECT_FALSE(IsBuiltInDateFormat(number)) << number;
    }
}

TEST(DateFormat, KnowsDatesThatAreWrittenOut) {
    for (const char* code :
         {"yyyy-mm-dd", "YYYY/M/D", "yyyy\"年\"m\"月\"d\"日\"", "[$-804]yyyy\"年\"m\"月\";@",
          "m/d/yy h:mm", "h:mm:ss", "[h]:mm", "[mm]:ss", "[DBNum1][$-804]yyyy\"年\"", "mmm-yy",
          "[$-404]e/m/d", "ggge\"年\"", "aaaa", "上午/下午h:mm", "[Red]yyyy", "[<1]0;yyyy-mm-dd"}) {
        EXPECT_TRUE(IsDateFormat(code)) << code;
    }
    for (const char* code : {"",
                             "General",
                             "GENERAL",
                             "0.00",
                             "#,##0.00",
                             "0.00E+00",
                             "##0.0E-0",
                             "@",
                             "0\"days\"",
                             "0\\d",
                             "0_d",
                             "*d0",
                             "[Red]0.00",
                             "[$USD] 0.00",
                             "¥#,##0.00",
                             "#,##0.00\"元\"",
                             "0%",
                             "# ?/?",
                             "_(* #,##0.00_);_(* (#,##0.00)",
                             "0\"d",
                             "[Red",
                             "[$-804]General"}) {
        EXPECT_FALSE(IsDateFormat(code)) << code;
    }
}

TEST(DateFormat, NumbersStandForDays) {
    EXPECT_EQ(Day("38169"), "2004-07-01 00:00:00");
    EXPECT_EQ(Day("1"), "1900-01-01 00:00:00");
    EXPECT_EQ(Day("59"), "1900-02-28 00:00:00");
    EXPECT_EQ(Day("60"), "none") << "there was no such day";
    EXPECT_EQ(Day("61"), "1900-03-01 00:00:00");
    EXPECT_EQ(Day("2958465"), "9999-12-31 00:00:00");
    EXPECT_EQ(Day("2958466"), "none");
    EXPECT_EQ(Day("0"), "none");
    EXPECT_EQ(Day("0.5"), "none");
    EXPECT_EQ(Day("-1"), "none");
    EXPECT_EQ(Day("1E+300"), "none");
    EXPECT_EQ(Day("x"), "none");
}

TEST(DateFormat, TheOtherSystemCountsFrom1904) {
    EXPECT_EQ(Day("0", DateSystem::From1904), "1904-01-01 00:00:00");
    EXPECT_EQ(Day("36707", DateSystem::From1904), "2004-07-01 00:00:00");
    EXPECT_EQ(Day("2957003", DateSystem::From1904), "9999-12-31 00:00:00");
    EXPECT_EQ(Day("2957004", DateSystem::From1904), "none");
}

TEST(DateFormat, FractionsAreTimes) {
    EXPECT_EQ(Day("38169.75"), "2004-07-01 18:00:00");
    EXPECT_EQ(Day("38169.999988425926"), "2004-07-01 23:59:59");
    EXPECT_EQ(Day("38169.9999999999"), "2004-07-02 00:00:00");
    EXPECT_EQ(Day("38168.99999999999"), "2004-07-01 00:00:00");
}

}  // namespace
}  // namespace kelvane::tables
