#include "data/date_text.h"

#include <gtest/gtest.h>

namespace kelvane::data {
namespace {

using platform::DateTime;

std::string Checked(std::string text) {
    const std::string typed = text;
    if (CheckDateText(text)) return text;
    EXPECT_EQ(text, typed) << "a refused text changed";
    return "refused";
}

TEST(CheckDateText, BringsEverySeparatorIntoOneForm) {
    EXPECT_EQ(Checked("2004-7-1"), "2004.07.01");
    EXPECT_EQ(Checked("2004.7.1"), "2004.07.01");
    EXPECT_EQ(Checked("2004/07/01"), "2004.07.01");
}

TEST(CheckDateText, PutsTwoDigitYearsInto1930To2029) {
    EXPECT_EQ(Checked("04.7.1"), "2004.07.01");
    EXPECT_EQ(Checked("95.1.1"), "1995.01.01");
    EXPECT_EQ(Checked("29.1.1"), "2029.01.01");
    EXPECT_EQ(Checked("30.1.1"), "1930.01.01");
    EXPECT_EQ(Checked("0.1.1"), "2000.01.01");
    EXPECT_EQ(Checked("99.12.31"), "1999.12.31");
    EXPECT_EQ(Checked("100.1.1"), "0100.01.01");
}

TEST(CheckDateText, RefusesImpossibleDatesAndOtherTexts) {
    for (const char* text : {"2004.13.1",  "2004.0.1",        "2004.2.30",  "2004.1",
                             "20040701",   "abcd.1.1",        "",           "..",
                             "2004..1",    "2004.1.",         "2004.1.32",  "2004.1.0",
                             "2023.02.30", "2003.2.29",       "10000.1.1",  ".1.1",
                             "2004x.1.1",  "-2004.1.1",       "2004.-1.1",  "2004.1.-1",
                             "40000.1.1",  "2004.99999999.1", "2004.1.1e99"})
        EXPECT_EQ(Checked(text), "refused") << text;
}

TEST(CheckDateText, UsesTheFirstKindOfSeparatorAlone) {
    EXPECT_EQ(Checked("2004-07.01"), "refused");
    EXPECT_EQ(Checked("2004.07/01"), "refused");
    EXPECT_EQ(Checked("2004-7-1.9"), "2004.07.02");
    EXPECT_EQ(Checked("2004.7.1/5"), "2004.07.01");
}

TEST(CheckDateText, ReadsLeadingNumbers) {
    EXPECT_EQ(Checked("2004.7.1 12:00"), "refused");
    EXPECT_EQ(Checked("2004.7.1日"), "2004.07.01");
    EXPECT_EQ(Checked("2004.7月.1"), "2004.07.01");
    EXPECT_EQ(Checked("2004.7.1.5"), "2004.07.02");
    EXPECT_EQ(Checked(" 2004 . 7 . 1 "), "2004.07.01");
    EXPECT_EQ(Checked("2004.1 2.1 5"), "2004.12.15");
    EXPECT_EQ(Checked("2 004.1.1"), "refused");
    EXPECT_EQ(Checked("2004年.7.1"), "refused");
}

TEST(CheckDateText, RoundsHalfToEven) {
    EXPECT_EQ(Checked("2004-6.5-1"), "2004.06.01");
    EXPECT_EQ(Checked("2004-7.5-1"), "2004.08.01");
    EXPECT_EQ(Checked("2003.5-1-1"), "2004.01.01");
    EXPECT_EQ(Checked("2004-0.5-1"), "refused");
}

TEST(DateTextToDate, AnswersTheNullDateForWhatIsNoDate) {
    EXPECT_EQ(DateTextToDate("04-7-1"), (DateTime{2004, 7, 1}));
    EXPECT_EQ(DateTextToDate("2004.2.29"), (DateTime{2004, 2, 29}));
    EXPECT_EQ(DateTextToDate("x"), (DateTime{100, 1, 1}));
    EXPECT_EQ(DateTextToDate(""), kNullDate);
}

TEST(DateToText, PadsAndKnowsNull) {
    EXPECT_EQ(DateToText(DateTime{2004, 7, 1, 13, 30}), "2004.07.01");
    EXPECT_EQ(DateToText(DateTime{987, 12, 31}), "0987.12.31");
    EXPECT_EQ(DateToText(std::nullopt), "");
    EXPECT_EQ(DateToText(kNullDate), kNullDateText);
}

TEST(DateTextOrEmpty, LeavesTheNullDateInTheVariable) {
    std::string text = "2004/7/1";
    EXPECT_EQ(DateTextOrEmpty(text), "2004.07.01");
    EXPECT_EQ(text, "2004.07.01");
    text = "2004.2.30";
    EXPECT_EQ(DateTextOrEmpty(text), "");
    EXPECT_EQ(text, "0100.01.01");
    text = "100.1.1";
    EXPECT_EQ(DateTextOrEmpty(text), "");
    EXPECT_EQ(text, "0100.01.01");
}

}  // namespace
}  // namespace kelvane::data
