#include "data/setting_date.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace kelvane::data {
namespace {

using platform::DateTime;
using platform::Value;

TEST(SettingDate, ReadsTheFormsThatDatesAreWrittenIn) {
    const DateTime first{2004, 7, 1};
    for (const char* text :
         {"2004-07-01", "2004/7/1", "2004.7.1", "20040701", "2004-07-01 00:00:00.000",
          "2004年7月1日", " 2004年07月01日 ", "2004-07", "2004/7", "2004.07", "2004年7月",
          "Jul  1 2004 12:00AM", "Jul 1 2004", "JUL 01 2004 12:00am"}) {
        EXPECT_EQ(SettingDate("PM.a", Value(text)), first) << text;
    }
    EXPECT_EQ(SettingDate("PM.a", Value(DateTime{2004, 7, 1, 8})), (DateTime{2004, 7, 1, 8}));
    EXPECT_EQ(SettingDate("PM.a", Value("2004年12月31日 8:30")), (DateTime{2004, 12, 31, 8, 30}));
    EXPECT_EQ(SettingDate("PM.a", Value("Dec 31 2004  3:05PM")), (DateTime{2004, 12, 31, 15, 5}));
    EXPECT_EQ(SettingDate("PM.a", Value("Dec 31 2004 12:05PM")), (DateTime{2004, 12, 31, 12, 5}));
}

TEST(SettingDate, RefusesEverythingElse) {
    for (const char* text : {"",
                             "七月",
                             "2004",
                             "200407",
                             "7/1/2004",
                             "2004-13",
                             "2004-02-30",
                             "2004年2月30日",
                             "2004年7月5",
                             "2004年",
                             "7月1日",
                             "2004年7月1日左右",
                             "04-07",
                             "1 Jul 2004",
                             "Jul 32 2004",
                             "July 1 2004",
                             "Jul 1 04",
                             "Jul 1 2004 13:00",
                             "Jul 1 2004 13:00PM",
                             "Jul 1 2004 0:30AM",
                             "Jul 1 2004 12:60AM",
                             "Jul 1 2004 AM",
                             "Jul 1 2004 12:00AM x",
                             "Jul 1 2004 99999:00AM",
                             "Jul"}) {
        EXPECT_THROW((void)SettingDate("PM.a", Value(text)), std::invalid_argument) << text;
    }
    EXPECT_THROW((void)SettingDate("PM.a", Value()), std::invalid_argument);
}

TEST(SettingDate, NamesTheSettingThatIsNoDate) {
    try {
        (void)SettingDate("PM.dPMStartDate", Value("soon"));
        FAIL();
    } catch (const std::invalid_argument& error) {
        EXPECT_STREQ(error.what(), "PM.dPMStartDate：不是日期：soon");
    }
}

}  // namespace
}  // namespace kelvane::data
