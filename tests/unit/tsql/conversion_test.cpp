#include "adapters/tsql/values/conversion.h"

#include <gtest/gtest.h>

#include <limits>

#include "adapters/tsql/language/errors.h"
#include "adapters/tsql/values/stored_value.h"

namespace kelvane::tsql {
namespace {

using Kind = Type::Kind;

constexpr Type kText{Kind::VarChar, 0};
constexpr Type kInt{Kind::Int, 0};
constexpr Type kBit{Kind::Bit, 0};
constexpr Type kMoney{Kind::Money, 0};
constexpr Type kFloat{Kind::Float, 0};
constexpr Type kDate{Kind::DateTime, 0};

Datum Text(const char* text) {
    return std::string(text);
}
Datum Whole(std::int64_t number) {
    return number;
}

template <typename Action>
int CodeOf(Action action) {
    try {
        action();
    } catch (const DatabaseError& error) {
        return error.NativeCode();
    }
    return 0;
}

TEST(Conversion, TextToNumbers) {
    EXPECT_EQ(Convert(Text(" +7 "), kText, kInt), Whole(7));
    EXPECT_EQ(Convert(Text(""), kText, kInt), Whole(0));
    EXPECT_EQ(Convert(Text("-5"), kText, kBit), Whole(1));
    EXPECT_EQ(Convert(Text("FALSE"), kText, kBit), Whole(0));
    EXPECT_EQ(Convert(Text("1,234.56785"), kText, kMoney), Whole(12345679));
    EXPECT_EQ(Convert(Text(" "), kText, kMoney), Whole(0));
    EXPECT_EQ(Convert(Text("1e3"), kText, kFloat), Datum(1000.0));
    for (const char* text : {"inf", "-Infinity", "nan", "1e400", "--1", "+-1", ".", "+"}) {
        EXPECT_EQ(CodeOf([&] { Convert(Text(text), kText, kFloat); }), 8114) << text;
    }
    EXPECT_EQ(CodeOf([] { Convert(Text("+-1"), kText, kInt); }), 245);
    EXPECT_EQ(CodeOf([] { Convert(Text("1e3"), kText, kMoney); }), 235);
    EXPECT_EQ(CodeOf([] { Convert(Text("1e3"), kText, kInt); }), 245);
    EXPECT_EQ(CodeOf([] { Convert(Text("2147483648"), kText, kInt); }), 248);
    EXPECT_EQ(CodeOf([] { Convert(Text("99999999999999999999"), kText, kInt); }), 248);
    EXPECT_EQ(CodeOf([] { Convert(Text("922337203685477.5808"), kText, kMoney); }), 8115);
}

TEST(Conversion, BetweenNumbers) {
    EXPECT_EQ(Convert(Whole(5), kInt, kMoney), Whole(50000));
    EXPECT_EQ(Convert(Whole(25000), kMoney, kInt), Whole(3));
    EXPECT_EQ(Convert(Whole(-25000), kMoney, kInt), Whole(-3));
    EXPECT_EQ(Convert(Whole(1), kMoney, kBit), Whole(1));
    EXPECT_EQ(Convert(Datum(-2.9), kFloat, kInt), Whole(-2));
    EXPECT_EQ(Convert(Datum(0.1), kFloat, kMoney), Whole(1000));
    EXPECT_EQ(Convert(Whole(15000), kMoney, kFloat), Datum(1.5));
    EXPECT_EQ(CodeOf([] { Convert(Whole(256), kInt, {Kind::TinyInt, 0}); }), 8115);
    EXPECT_EQ(CodeOf([] { Convert(Datum(1e300), kFloat, kInt); }), 8115);
    EXPECT_EQ(CodeOf([] { Convert(Datum(1e300), kFloat, kMoney); }), 8115);
    EXPECT_EQ(
        CodeOf([] { Convert(Datum(std::numeric_limits<double>::quiet_NaN()), kFloat, kInt); }),
        8115);
}

TEST(Conversion, NumbersToText) {
    EXPECT_EQ(Convert(Whole(12345678), kMoney, kText), Text("1234.57"));
    EXPECT_EQ(Convert(Whole(12345678), kMoney, kText, 1), Text("1,234.57"));
    EXPECT_EQ(Convert(Whole(12345678), kMoney, kText, 2), Text("1234.5678"));
    EXPECT_EQ(Convert(Whole(-1234567891), kMoney, kText, 1), Text("-123,456.79"));
    EXPECT_EQ(Convert(Whole(-42), kInt, kText, 1), Text("-42"));
    EXPECT_EQ(Convert(Datum(1234567.0), kFloat, kText), Text("1.23457e+006"));
    EXPECT_EQ(Convert(Datum(0.25), kFloat, kText), Text("0.25"));
    EXPECT_EQ(CodeOf([] { Convert(Whole(1), kMoney, kText, 7); }), 281);
    EXPECT_EQ(CodeOf([] { Convert(Whole(123), kInt, {Kind::VarChar, 2}); }), 8115);
    EXPECT_EQ(Convert(Text("一二"), kText, {Kind::VarChar, 3}), Text("一"));
}

TEST(Conversion, Dates) {
    const Datum day = Text("2004-06-30 00:00:00.000");
    for (const char* form : {"2004-06-30", "2004/6/30", "2004.06.30", "20040630", " 2004-6-30 "}) {
        EXPECT_EQ(Convert(Text(form), kText, kDate), day) << form;
    }
    EXPECT_EQ(Convert(Text("  "), kText, kDate), Text("1900-01-01 00:00:00.000"));
    EXPECT_EQ(Convert(Text("2004-06-30 12:34"), kText, kDate), Text("2004-06-30 12:34:00.000"));
    const char* const rounded[][2] = {{".001", ".000"}, {".002", ".003"}, {".004", ".003"},
                                      {".005", ".007"}, {".008", ".007"}, {".009", ".010"},
                                      {".996", ".997"}, {".5", ".500"}};
    for (const auto& [from, to] : rounded) {
        EXPECT_EQ(Convert(Text((std::string("2004-06-30 01:02:03") + from).c_str()), kText, kDate),
                  Text((std::string("2004-06-30 01:02:03") + to).c_str()));
    }
    EXPECT_EQ(Convert(Text("2004-12-31 23:59:59.999"), kText, kDate),
              Text("2005-01-01 00:00:00.000"));
    EXPECT_EQ(CodeOf([] { Convert(Text("2023-02-30"), kText, kDate); }), 242);
    EXPECT_EQ(CodeOf([] { Convert(Text("2004-06-30 25:00"), kText, kDate); }), 242);
    EXPECT_EQ(CodeOf([] { Convert(Text("1752-12-31"), kText, kDate); }), 242);
    EXPECT_EQ(CodeOf([] { Convert(Text("9999-12-31 23:59:59.999"), kText, kDate); }), 242);
    EXPECT_EQ(CodeOf([] { Convert(Text("30 June"), kText, kDate); }), 241);
    EXPECT_EQ(CodeOf([] { Convert(Text("2004-06"), kText, kDate); }), 241);
    EXPECT_EQ(Convert(Whole(-1), kInt, kDate), Text("1899-12-31 00:00:00.000"));
    EXPECT_EQ(CodeOf([] { Convert(Whole(99999999), kInt, kDate); }), 8115);
    EXPECT_EQ(CodeOf([] { Convert(Text("2004-06-30 00:00:00.000"), kDate, kInt); }), 257);
}

TEST(Conversion, DatesToText) {
    const Datum date = Text("2004-07-01 15:04:05.007");
    const std::pair<int, const char*> styles[] = {{0, "Jul  1 2004  3:04PM"},
                                                  {23, "2004-07-01"},
                                                  {102, "2004.07.01"},
                                                  {111, "2004/07/01"},
                                                  {112, "20040701"},
                                                  {120, "2004-07-01 15:04:05"},
                                                  {121, "2004-07-01 15:04:05.007"}};
    for (const auto& [style, text] : styles) {
        EXPECT_EQ(Convert(date, kDate, kText, style), Text(text)) << style;
    }
    EXPECT_EQ(CodeOf([&] { Convert(date, kDate, kText, 999); }), 281);
}

TEST(Conversion, StoresAndLoads) {
    EXPECT_EQ(Stored(Whole(-12345), kMoney, "m"), Text("-1.2345"));
    EXPECT_EQ(Loaded(Text("-1.2345"), kMoney), Whole(-12345));
    EXPECT_EQ(Loaded(Text("12"), kMoney), Whole(120000));
    EXPECT_EQ(Loaded(Text("1.5e+3"), kMoney), Whole(15000000));
    EXPECT_EQ(Loaded(Datum(2.5), kMoney), Whole(25000));
    EXPECT_EQ(Loaded(Datum(), kMoney), Datum());
    EXPECT_EQ(Loaded(Whole(3), kFloat), Datum(3.0));
    EXPECT_EQ(Loaded(Whole(3), kText), Text("3"));
    EXPECT_EQ(Loaded(Text("7"), kInt), Whole(7));
    EXPECT_EQ(CodeOf([] { Loaded(Text("x"), kInt); }), 245);
    EXPECT_EQ(Stored(Text("一二三四五"), {Kind::VarChar, 10}, "c"), Text("一二三四五"));
    EXPECT_EQ(CodeOf([] { Stored(Text("一二三四五六"), {Kind::VarChar, 10}, "c"); }), 8152);
    EXPECT_EQ(Stored(Text("一二三四五六"), {Kind::NVarChar, 6}, "c"), Text("一二三四五六"));
    EXPECT_EQ(Stored(Text("ab   "), {Kind::VarChar, 3}, "c"), Text("ab "));
}

TEST(Conversion, ReadsStoredAmountsAtTheLimits) {
    for (const std::int64_t units :
         {std::numeric_limits<std::int64_t>::max(), std::numeric_limits<std::int64_t>::min(),
          std::int64_t{0}, std::int64_t{-1}, std::int64_t{9999}, std::int64_t{10000}}) {
        EXPECT_EQ(MoneyUnits(MoneyText(units)), units);
    }
    EXPECT_EQ(CodeOf([] { MoneyUnits("99999999999999999.0000"); }), 8115);
    EXPECT_EQ(CodeOf([] { MoneyUnits("1.23x4"); }), 235);
    EXPECT_EQ(CodeOf([] { MoneyUnits(""); }), 235);
}

TEST(Types, AreReadFromTheirNames) {
    EXPECT_EQ(ParseType("VarChar( 60 )"), (Type{Kind::VarChar, 60}));
    EXPECT_EQ(ParseType(" money "), (Type{Kind::Money, 0}));
    EXPECT_EQ(ParseType("integer"), (Type{Kind::Int, 0}));
    EXPECT_EQ(ParseType("TEXT"), (Type{Kind::VarChar, 0}));
    EXPECT_EQ(ParseType("ntext"), (Type{Kind::NVarChar, 0}));
    for (const char* other :
         {"", "decimal(19,4)", "int(5)", "varchar(", "varchar(x)", "varchar(0)", "text(20)"}) {
        EXPECT_FALSE(ParseType(other).has_value()) << other;
    }
    EXPECT_EQ(TypeName({Kind::VarChar, 0}), "varchar");
    EXPECT_EQ(TypeName({Kind::NVarChar, 0}), "nvarchar");
}

TEST(Types, SomeTextsAreDeclaredWithALength) {
    for (const char* name : {"varchar", "NChar"}) EXPECT_TRUE(TakesLength(name)) << name;
    for (const char* name : {"text", "NText", "int", "image"}) {
        EXPECT_FALSE(TakesLength(name)) << name;
    }
}

}  // namespace
}  // namespace kelvane::tsql
