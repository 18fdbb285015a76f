#include "platform/statement_text.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace kelvane::platform {
namespace {

StatementText WithValue(std::string_view value) {
    StatementText statement("select 1 where c = '");
    return statement.Inside(value) << "'";
}

TEST(StatementText, IsTheConcatenation) {
    StatementText statement("insert into t values( '");
    statement.Inside("A01 ") << "'," << StatementText("x=");
    statement.Quoted("  A02 ") << ",";
    statement.Number(-3) << ",";
    statement.Amount(Money::FromText("1,234.50")) << ",";
    statement.Double(0.1) << ") ";
    EXPECT_EQ(statement.Checked(), "insert into t values( 'A01 ',x='A02',-3,1234.5,0.1) ");
    EXPECT_FALSE(statement.IsMalformed());
    EXPECT_TRUE(StatementText().IsEmpty());
}

TEST(StatementText, AValueThatEndsItsLiteralNeverRuns) {
    for (const char* value :
         {"'", "it's", "x' or '1'='1", "'; drop table t --", "'''", "a'b''c", "''a'", "a''''' b"}) {
        const StatementText statement = WithValue(value);
        EXPECT_TRUE(statement.IsMalformed()) << value;
        EXPECT_THROW((void)statement.Checked(), MalformedStatement) << value;
        EXPECT_EQ(statement.Text(), "select 1 where c = '" + std::string(value) + "'");
    }
}

TEST(StatementText, DoubledApostrophesStayInsideTheLiteral) {
    for (const char* value : {"", "''", "it''s", "''''", "a''b''''c", "-- ;/*"}) {
        EXPECT_EQ(WithValue(value).Checked(), "select 1 where c = '" + std::string(value) + "'");
    }
}

TEST(StatementText, OneMalformedPieceSpoilsTheWhole) {
    StatementText statement("begin ");
    statement << WithValue("'") << " end";
    EXPECT_THROW((void)statement.Checked(), MalformedStatement);
    EXPECT_THROW((void)statement.WithEntry(1).Checked(), MalformedStatement);
}

TEST(StatementTextQuoted, RemovesBlanksAlone) {
    EXPECT_EQ(StatementText().Quoted("  A 01  ").Text(), "'A 01'");
    EXPECT_EQ(StatementText().Quoted("\tA\t").Text(), "'\tA\t'");
    EXPECT_EQ(StatementText().Quoted("   ").Text(), "''");
    EXPECT_TRUE(StatementText().Quoted(" ' ").IsMalformed());
}

TEST(StatementTextIdentifier, TakesNamesAlone) {
    for (const char* name : {"cKeyCode1", "_x", "Key_2", "合同号"})
        EXPECT_FALSE(StatementText().Identifier(name).IsMalformed()) << name;
    for (const char* name : {"", "1a", "a b", "a;b", "a'b", "a-b", "a.b", "[a]", "a\xC2\xA0",
                             "a\xE3\x80\x80z", "a\xEF\xBC\x9B", "a\xE5\x90"})
        EXPECT_TRUE(StatementText().Identifier(name).IsMalformed()) << name;
}

TEST(StatementTextName, StandsInBracketsBeyondAscii) {
    EXPECT_EQ(StatementText().Name("cKeyCode1").Checked(), "cKeyCode1");
    EXPECT_EQ(StatementText().Name("合同号2").Checked(), "[合同号2]");
    for (const char* name : {"", "a b", "合]同", "合\xC2\xA0"})
        EXPECT_TRUE(StatementText().Name(name).IsMalformed()) << name;
}

TEST(StatementTextNumericText, TakesPlainNumbersAlone) {
    for (const char* number : {"12", "-3.5", ".5", "12.", "0", " 12  "})
        EXPECT_EQ(StatementText().NumericText(number).Checked(), number);
    for (const char* number :
         {"", "-", ".", "1,234", "1e3", "--1", "1.2.3", "1 2", "1 or 1=1", "1-2", "1\n"})
        EXPECT_TRUE(StatementText().NumericText(number).IsMalformed()) << number;
}

TEST(StatementTextDouble, MustBeFinite) {
    EXPECT_EQ(StatementText().Double(1e21).Text(), "1000000000000000000000");
    EXPECT_TRUE(StatementText().Double(std::numeric_limits<double>::quiet_NaN()).IsMalformed());
}

TEST(StatementTextWithEntry, FillsEveryPlace) {
    StatementText script("delete from t where i=");
    script.EntryPlaceholder() << " insert into t values(";
    script.EntryPlaceholder() << ",'A')";
    EXPECT_EQ(script.Text(), "delete from t where i=@@@@ insert into t values(@@@@,'A')");
    EXPECT_EQ(script.WithEntry(17).Checked(),
              "delete from t where i=17 insert into t values(17,'A')");
    EXPECT_EQ(StatementText("select 1").WithEntry(17).Checked(), "select 1");
}

TEST(StatementTextWithEntry, LeavesValuesAlone) {
    StatementText lines(" insert into t values(");
    lines.EntryPlaceholder() << ",";
    lines.Quoted("@@@@") << ")";
    StatementText script("delete from t where i=");
    script.EntryPlaceholder() << lines;
    script << lines;
    EXPECT_EQ(script.WithEntry(17).Checked(),
              "delete from t where i=17 insert into t values(17,'@@@@') insert into t "
              "values(17,'@@@@')");
    script << script;
    EXPECT_EQ(script.WithEntry(5).Text(), script.WithEntry(5).WithEntry(6).Text());
}

}  // namespace
}  // namespace kelvane::platform
