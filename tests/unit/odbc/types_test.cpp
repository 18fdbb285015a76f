// Every column type that drivers report, as the value the library gets.
#include "tests/unit/odbc/server_fixture.h"

namespace kelvane::odbc {
namespace {

using platform::DateTime;
using platform::Money;
using platform::Value;

class Types : public ServerTest {};

TEST_F(Types, AreWhatTheEmbeddedAccountGives) {
    Open(R"(run select * from Probe
columns b BIT|t TINYINT|s SMALLINT|i INTEGER|g BIGINT|f DOUBLE|r REAL|c VARCHAR 10|n WVARCHAR 10
row 1|255|-7|-5|9000000000000000000|0.1|0.5|text|宽😀
row NULL|NULL|NULL|NULL|NULL|NULL|NULL|NULL|NULL)");
    const auto set = Query("select * from Probe");
    ASSERT_EQ(set->RecordCount(), 2);
    EXPECT_EQ(set->FieldCount(), 9);
    EXPECT_EQ(set->Field("B"), Value(std::int64_t{1}));
    EXPECT_EQ(set->Field("t"), Value(std::int64_t{255}));
    EXPECT_EQ(set->Field("s"), Value(std::int64_t{-7}));
    EXPECT_EQ(set->Field("i"), Value(std::int64_t{-5}));
    EXPECT_EQ(set->Field("g"), Value(std::int64_t{9000000000000000000}));
    EXPECT_EQ(set->Field("f"), Value(0.1));
    EXPECT_EQ(set->Field("r"), Value(0.5));
    EXPECT_EQ(set->Field("c"), Value("text"));
    EXPECT_EQ(set->Field("n"), Value("宽😀"));
    set->MoveNext();
    for (int i = 0; i < set->FieldCount(); ++i) EXPECT_TRUE(set->Field(i).IsNull()) << i;
}

// The driver refuses to give an exact number as a floating one.
TEST_F(Types, AmountsAreExact) {
    Open(R"(run select m from T
columns m DECIMAL 19 4|whole NUMERIC 18 0|fine DECIMAL 20 6
row 922337203685477.5807|123|0.000001
row -.0050|-5|NULL
row 12345678901.2300|0|12345678901234.123456)");
    const auto set = Query("select m from T");
    EXPECT_EQ(set->Field(0), Value(Money::FromUnits(9223372036854775807)));
    EXPECT_EQ(set->Field(1), Value(Money::FromInteger(123)));
    EXPECT_EQ(set->Field(2), Value("0.000001"));
    set->MoveNext();
    EXPECT_EQ(set->Field(0), Value(Money::FromText("-0.005")));
    set->MoveNext();
    EXPECT_EQ(set->Field(0), Value(Money::FromText("12345678901.23")));
    EXPECT_EQ(set->Field(2), Value("12345678901234.123456"));
}

TEST_F(Types, DatesKeepTheirMilliseconds) {
    Open(R"(run select d from T
columns d TIMESTAMP 23 3|day DATE 10
row 2004-06-30 12:13:14.996666667|2004-06-30
row 1900-01-01 00:00:00.0|0001-01-01
row 9999-12-31 23:59:59.999999999|NULL)");
    const auto set = Query("select d from T");
    EXPECT_EQ(set->Field(0), Value(DateTime{2004, 6, 30, 12, 13, 14, 997}));
    EXPECT_EQ(set->Field(1), Value(DateTime{2004, 6, 30}));
    set->MoveNext();
    EXPECT_EQ(set->Field(0), Value(DateTime{1900, 1, 1}));
    EXPECT_EQ(set->Field(1), Value(DateTime{1, 1, 1}));
    set->MoveNext();
    EXPECT_EQ(set->Field(0), Value(DateTime{9999, 12, 31, 23, 59, 59, 999}));
}

TEST_F(Types, WhatIsNoneOfThemIsText) {
    Open(R"(run select g from T
columns g GUID 36|- INTEGER|fixed CHAR 5|wide WCHAR 4
row 6F9619FF-8B86-D011-B42D-00C04FC964FF|7|ab   |宽  )");
    const auto set = Query("select g from T");
    EXPECT_EQ(set->Field("g"), Value("6F9619FF-8B86-D011-B42D-00C04FC964FF"));
    EXPECT_EQ(set->Field(1), Value(std::int64_t{7}));
    EXPECT_EQ(set->Field("fixed"), Value("ab   "));
    EXPECT_EQ(set->Field("wide"), Value("宽  "));
}

constexpr const char* kLongTexts = R"(run select x from T
columns x WLONG|y LONG|z VARCHAR 10
row a😀*9000|bc*30000|end
row 8191*2|*0|end)";

std::string Repeated(const std::string& text, int times) {
    std::string result;
    for (int i = 0; i < times; ++i) result += text;
    return result;
}

void ExpectLongTexts(platform::RecordSet& set) {
    EXPECT_EQ(set.Field(0), Value(Repeated("a😀", 9000)));
    EXPECT_EQ(set.Field(1), Value(Repeated("bc", 30000)));
    EXPECT_EQ(set.Field(2), Value("end"));
    set.MoveNext();
    EXPECT_EQ(set.Field(0), Value("81918191"));
    EXPECT_EQ(set.Field(1), Value(""));
    EXPECT_EQ(set.Field(2), Value("end"));
}

TEST_F(Types, LongTextsComeWhole) {
    Open(kLongTexts);
    ExpectLongTexts(*Query("select x from T"));
}

TEST_F(Types, LongTextsOfUnknownLengthComeWhole) {
    Open(std::string("pieces\n") + kLongTexts);
    ExpectLongTexts(*Query("select x from T"));
}

TEST_F(Types, StatementsReachTheServerInUnicode) {
    Open("run select '宽😀'\ncolumns - WVARCHAR 2\nrow 宽😀");
    EXPECT_EQ(Query("select '宽😀'")->Field(0), Value("宽😀"));
    EXPECT_EQ(Log(), "run select '宽😀'\n");
}

class NarrowTypes : public ServerTest {
protected:
    NarrowTypes() : ServerTest(KELVANE_SCRIPTED_ODBC_NARROW) {}
};

TEST_F(NarrowTypes, AreUtf8BothWays) {
    Open(R"(run select '宽😀'
columns - VARCHAR 20|x LONG|m DECIMAL 19 4
row 宽😀|长*9000|1.5000)");
    const auto set = Query("select '宽😀'");
    EXPECT_EQ(set->Field(0), Value("宽😀"));
    EXPECT_EQ(set->Field("x"), Value(Repeated("长", 9000)));
    EXPECT_EQ(set->Field("m"), Value(Money::FromText("1.5")));
    EXPECT_EQ(Log(), "run select '宽😀'\n");
}

}  // namespace
}  // namespace kelvane::odbc
