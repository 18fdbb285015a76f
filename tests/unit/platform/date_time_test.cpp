#include "platform/date_time.h"

#include <gtest/gtest.h>

namespace kelvane::platform {
namespace {

DateTime Parsed(std::string_view text) {
    DateTime result{1, 1, 1};
    EXPECT_TRUE(DateTime::Parse(text, result)) << text;
    return result;
}

TEST(DateTimeParse, ReadsTheDatabasesForms) {
    const DateTime date{2004, 6, 30};
    for (const char* text : {"2004-06-30", "2004/6/30", "2004.06.30", "20040630", "2004-6-30",
                             " 2004-06-30 ", "2004-06-30 00:00:00.000", "2004-06-30T00:00"})
        EXPECT_EQ(Parsed(text), date) << text;
    EXPECT_EQ(Parsed("2004-06-30 13:05:09.5"), (DateTime{2004, 6, 30, 13, 5, 9, 500}));
    EXPECT_EQ(Parsed("2004-06-30 1:05"), (DateTime{2004, 6, 30, 1, 5}));
}

TEST(DateTimeParse, RefusesOtherTextsAndLeavesTheResult) {
    for (const char* text :
         {"", "2004", "2004-06", "2004-06/30", "2004-02-30", "2003-02-29", "2004-13-01", "0000-1-1",
          "04-6-30", "2004-06-30x", "2004-06-30 24:00", "2004-06-30 12:60", "2004-06-30 12",
          "2004-06-30 12:00:00.", "200406300", "abcd-1-1"}) {
        DateTime result{1, 2, 3};
        EXPECT_FALSE(DateTime::Parse(text, result)) << text;
        EXPECT_EQ(result, (DateTime{1, 2, 3})) << text;
    }
}

TEST(DateTimeText, PadsEveryField) {
    const DateTime date{100, 1, 2, 3, 4, 5, 6};
    EXPECT_EQ(date.DateText('.'), "0100.01.02");
    EXPECT_EQ(date.DateText(), "0100-01-02");
    EXPECT_EQ(date.FullText(), "0100-01-02 03:04:05.006");
}

TEST(DateTimeSerial, RollsOver) {
    EXPECT_EQ(DateTime::FromSerial(2023, 2, 30), (DateTime{2023, 3, 2}));
    EXPECT_EQ(DateTime::FromSerial(2004, 13, 1), (DateTime{2005, 1, 1}));
    EXPECT_EQ(DateTime::FromSerial(2004, 0, 1), (DateTime{2003, 12, 1}));
    EXPECT_EQ(DateTime::FromSerial(2004, -11, 31), (DateTime{2003, 1, 31}));
    EXPECT_EQ(DateTime::FromSerial(2004, 3, 0), (DateTime{2004, 2, 29}));
}

TEST(DateTimeDays, CountFrom1970) {
    EXPECT_EQ((DateTime{1970, 1, 1}).DayNumber(), 0);
    EXPECT_EQ((DateTime{1969, 12, 31, 23}).DayNumber(), -1);
    EXPECT_EQ((DateTime{2000, 3, 1}).DayNumber(), 11017);
    EXPECT_EQ((DateTime{2004, 3, 1, 8, 30}).AddDays(-1), (DateTime{2004, 2, 29, 8, 30}));
    const long firstDay = DateTime{1, 1, 1}.DayNumber();
    const long lastDay = DateTime{9999, 12, 31}.DayNumber();
    for (long day = firstDay; day <= lastDay; day += 97) {
        const DateTime date = DateTime::FromDayNumber(day);
        ASSERT_TRUE(date.IsValid());
        ASSERT_EQ(date.DayNumber(), day);
        ASSERT_LT(date, DateTime::FromDayNumber(day + 1));
    }
}

TEST(DateTimeIsValid, KnowsTheCalendar) {
    EXPECT_TRUE((DateTime{2000, 2, 29}).IsValid());
    EXPECT_FALSE((DateTime{1900, 2, 29}).IsValid());
    EXPECT_FALSE((DateTime{0, 1, 1}).IsValid());
    EXPECT_FALSE((DateTime{10000, 1, 1}).IsValid());
    EXPECT_FALSE((DateTime{2004, 257, 1}).IsValid());
    EXPECT_FALSE((DateTime{2004, 1, 257}).IsValid());
    EXPECT_FALSE((DateTime{2004, -1, 1}).IsValid());
    EXPECT_FALSE((DateTime{2004, 1, 1, 24}).IsValid());
}

}  // namespace
}  // namespace kelvane::platform
