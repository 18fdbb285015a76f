// The two days that opening entries are measured by, in every case of the calendar: the first day
// of the opening period, and the one before which a closed item counts as settled.
#include "entries/opening_period.h"
#include "tests/unit/ui/entry_list_fixture.h"

namespace kelvane::ui {
namespace {

using platform::DateTime;
using testing::ElementsAre;
using testing::IsEmpty;

struct Calendar {
    const char* name;
    int loginYear;
    int startYear;  // of the start period
    DateTime startDate;
    int periodDay;
    const char* openingBound;
    const char* lastDay;  // that an entry may have
    const char* settlementBound;
};

void PrintTo(const Calendar& calendar, std::ostream* out) {
    *out << calendar.name;
}

class EntryDatesTest : public EntryListTest, public testing::WithParamInterface<Calendar> {
protected:
    EntryDatesTest() {
        Open();
        login.year = GetParam().loginYear;
        data::gPmStartYear = static_cast<std::int16_t>(GetParam().startYear);
        data::gPmStartDate = GetParam().startDate;
        environment.periodDay = GetParam().periodDay;
    }
    bool Accepts(const std::string& date) {
        List().SetText(1, kDateColumn, date);
        std::string text;
        return Form().ValidateCell(1, kDateColumn, true, text);
    }
    bool IsSettledWhenClosedOn(const DateTime& day) {
        platform::StatementText statement("update fitemss97sub set iclose = 1, denddate = '");
        statement.Inside(day.DateText('-')) << "' where citemcode = 'P01'";
        other->Execute(statement);
        return Form().CheckItemSettled("P01", "", "");
    }
};

TEST_P(EntryDatesTest, EntriesLieBeforeTheOpeningPeriod) {
    EXPECT_EQ(entries::OpeningBound().DateText('-'), GetParam().openingBound);
    EXPECT_TRUE(Accepts(GetParam().lastDay));
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_FALSE(Accepts(GetParam().openingBound));
    EXPECT_THAT(Messages(), ElementsAre(std::string("[提示信息|information] "
                                                    "期初录入时间应在本年度帐套启用期间第一天(") +
                                        GetParam().openingBound + ")之前"));
    EXPECT_EQ(Form().ActiveControl(), &List());
}

TEST_P(EntryDatesTest, ANewRowHasTheLastDayThatIsAccepted) {
    Form().AddEntryRow();
    const int row = List().Rows() - 1;
    EXPECT_EQ(List().Text(row, kDateColumn), GetParam().lastDay);
    std::string text;
    EXPECT_TRUE(Form().ValidateCell(row, kDateColumn, true, text));
    EXPECT_EQ(text, GetParam().lastDay);
}

TEST_P(EntryDatesTest, AnItemIsSettledWhenItEndedBeforeTheStartMonth) {
    DateTime bound;
    ASSERT_TRUE(DateTime::Parse(GetParam().settlementBound, bound));
    EXPECT_TRUE(IsSettledWhenClosedOn(bound.AddDays(-1)));
    EXPECT_FALSE(IsSettledWhenClosedOn(bound));
}

INSTANTIATE_TEST_SUITE_P(Calendars, EntryDatesTest,
                         testing::Values(Calendar{"StartYearIsTheLoginYear",
                                                  2004,
                                                  2004,
                                                  {2004, 7, 1},
                                                  1,
                                                  "2004-07-01",
                                                  "2004-06-30",
                                                  "2004-07-01"},
                                         Calendar{"StartInTheMiddleOfAMonth",
                                                  2004,
                                                  2004,
                                                  {2004, 7, 10},
                                                  1,
                                                  "2004-07-01",
                                                  "2004-06-30",
                                                  "2004-07-01"},
                                         Calendar{"PeriodsThatCrossMonths",
                                                  2004,
                                                  2004,
                                                  {2004, 7, 10},
                                                  26,
                                                  "2004-06-26",
                                                  "2004-06-25",
                                                  "2004-07-01"},
                                         Calendar{"StartedInAnEarlierYear",
                                                  2005,
                                                  2004,
                                                  {2004, 7, 10},
                                                  1,
                                                  "2005-01-01",
                                                  "2004-12-31",
                                                  "2005-01-01"},
                                         Calendar{"StartedEarlierYearsCrossMonths",
                                                  2005,
                                                  2004,
                                                  {2004, 7, 10},
                                                  26,
                                                  "2004-12-26",
                                                  "2004-12-25",
                                                  "2004-12-26"},
                                         Calendar{"StartsInALaterYear",
                                                  2003,
                                                  2004,
                                                  {2004, 7, 10},
                                                  1,
                                                  "2004-07-01",
                                                  "2004-06-30",
                                                  "2004-07-01"},
                                         Calendar{"StartsLaterPeriodsCrossMonths",
                                                  2003,
                                                  2004,
                                                  {2004, 7, 10},
                                                  26,
                                                  "2004-06-26",
                                                  "2004-06-25",
                                                  "2004-07-01"},
                                         Calendar{"StartPeriodOfAnotherYearThanTheStart",
                                                  2004,
                                                  2003,
                                                  {2004, 3, 15},
                                                  1,
                                                  "2004-03-01",
                                                  "2004-02-29",
                                                  "2004-03-01"},
                                         Calendar{"StartDateBeforeItsOwnStartYear",
                                                  2004,
                                                  2004,
                                                  {2003, 12, 20},
                                                  1,
                                                  "2003-12-01",
                                                  "2003-11-30",
                                                  "2003-12-01"},
                                         Calendar{"StartOnTheYearsFirstDayIsNotLater",
                                                  2004,
                                                  2003,
                                                  {2004, 1, 1},
                                                  1,
                                                  "2004-01-01",
                                                  "2003-12-31",
                                                  "2004-01-01"}),
                         [](const auto& each) { return each.param.name; });

// Dates that are refused or brought into their form before the bound counts.

class EntryDateTextsTest : public EntryListTest {
protected:
    bool Validate(const std::string& typed, std::string& text) {
        List().SetText(1, kDateColumn, typed);
        return Form().ValidateCell(1, kDateColumn, true, text);
    }
};

TEST_F(EntryDateTextsTest, LooseDatesComeBackWithDashes) {
    Open();
    std::string text;
    for (const char* typed : {"2004.6.3", " 2004/06/03 ", "4-6-3"}) {
        EXPECT_TRUE(Validate(typed, text)) << typed;
        EXPECT_EQ(text, "2004-06-03");
    }
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(EntryDateTextsTest, RefusalsHaveTheirOwnMessages) {
    Open();
    std::string text;
    EXPECT_FALSE(Validate("  ", text));
    EXPECT_FALSE(Validate("2004-02-30", text));
    EXPECT_FALSE(Validate("x", text));
    EXPECT_FALSE(Validate("1899-12-31", text));
    EXPECT_TRUE(Validate("1900-01-01", text));
    EXPECT_THAT(Messages(),
                ElementsAre("[提示信息|information] 日期不能为空",
                            "[提示信息|information] 日期非法", "[提示信息|information] 日期非法",
                            "[提示信息|information] 期初录入时间录入有误！"));
}

TEST_F(EntryDateTextsTest, DatesAfterTheYear3000AreInvalidEvenBeforeTheBound) {
    Open();
    data::gPmStartDate = {3001, 1, 1};
    data::gPmStartYear = 2004;
    std::string text;
    EXPECT_TRUE(Validate("3000-01-01", text));
    EXPECT_FALSE(Validate("3000-01-02", text));
    EXPECT_THAT(Messages(), ElementsAre("[提示信息|information] 期初录入时间录入有误！"));
}

TEST_F(EntryDateTextsTest, WithoutACalendarNoDateIsAcceptedAndNoRowAdded) {
    Open();
    environment.fails = true;
    std::string text;
    EXPECT_FALSE(Validate("2004-06-03", text));
    EXPECT_EQ(Form().Notice(), "检查单元格内容时出错，该内容未被接受。");
    Form().AddEntryRow();
    EXPECT_EQ(List().Rows(), 4);
    EXPECT_EQ(Form().Notice(), "增加新行时出错。");
    EXPECT_THAT(Messages(), IsEmpty());
}

}  // namespace
}  // namespace kelvane::ui
