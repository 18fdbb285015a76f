#include "adapters/tsql/language/lexer.h"

#include <gtest/gtest.h>

#include "adapters/tsql/language/errors.h"

namespace kelvane::tsql {
namespace {

std::string Tokens(std::string_view statement) {
    LexedText text;
    Lex(statement, text);
    std::string result;
    for (const Token& token : text.tokens) {
        if (token.kind == Token::Kind::End) continue;
        if (!result.empty()) result += ' ';
        result += token.kind == Token::Kind::Literal ? "<" + std::string(token.text) + ">"
                                                     : std::string(token.text);
    }
    return result;
}

std::string Shape(std::string_view statement) {
    LexedText text;
    Lex(statement, text);
    return text.shape;
}

int CodeOf(std::string_view statement) {
    try {
        Tokens(statement);
    } catch (const DatabaseError& error) {
        return error.NativeCode();
    }
    return 0;
}

TEST(Lexer, SplitsWordsSymbolsAndLiterals) {
    EXPECT_EQ(Tokens("select a.b,c from T where x='y'and z=1"),
              "select a . b , c from T where x = <y> and z = <1>");
    EXPECT_EQ(Tokens("[a b].\"c d\""), "a b . c d");
    EXPECT_EQ(Tokens("名称=N'中'"), "名称 = <中>");
    EXPECT_EQ(Tokens("n=''"), "n = <>");
}

TEST(Lexer, JoinsOperatorsOverBlanks) {
    EXPECT_EQ(Tokens("a > = 1 < > 2 !\n= 3 ! < 4"), "a >= <1> <> <2> != <3> !< <4>");
    EXPECT_EQ(Tokens("a = > 1"), "a = > <1>");
}

TEST(Lexer, LeavesCommentsOut) {
    EXPECT_EQ(Tokens("a -- b 'c\n d /* ' */ e"), "a d e");
    EXPECT_EQ(CodeOf("a /* b"), 113);
}

TEST(Lexer, ReadsNumbers) {
    LexedText text;
    Lex("1 2147483648 1.50 .5 1e3 1.00001 9999999999999999999", text);
    ASSERT_EQ(text.literals.size(), 7U);
    using Kind = Type::Kind;
    const Kind kinds[] = {Kind::Int,   Kind::BigInt, Kind::Money, Kind::Money,
                          Kind::Float, Kind::Float,  Kind::Money};
    for (std::size_t i = 0; i < 7; ++i) EXPECT_EQ(text.literals[i].type.kind, kinds[i]) << i;
}

TEST(Lexer, KeepsApostrophesOfLiterals) {
    LexedText text;
    Lex("'a''b' ''''", text);
    ASSERT_EQ(text.literals.size(), 2U);
    EXPECT_EQ(text.literals[0].Text(), "a'b");
    EXPECT_EQ(text.literals[1].Text(), "'");
}

TEST(Lexer, RefusesWhatNeverEnds) {
    EXPECT_EQ(CodeOf("a = 'b"), 105);
    EXPECT_EQ(CodeOf("a = 'b''"), 105);
    EXPECT_EQ(CodeOf("a = [b"), 105);
    EXPECT_EQ(CodeOf("a = []"), 102);
    EXPECT_EQ(CodeOf("a ? b"), 102);
    EXPECT_EQ(CodeOf("a { b"), 102);
}

TEST(Lexer, GivesStatementsWithOtherValuesTheSameShape) {
    EXPECT_EQ(Shape("SELECT a FROM t WHERE b = 'x'"), Shape("select  A from T\nwhere B='''中'"));
    EXPECT_NE(Shape("select a from t where b = 'x'"), Shape("select a from t where b = 1"));
    EXPECT_NE(Shape("select a from t where b = 1"), Shape("select a from t where b = 1.5"));
    EXPECT_NE(Shape("select a from t where b = 'x'"), Shape("select a from t where b = 'É'"));
    EXPECT_NE(Shape("select a from t where b = 'x'"), Shape("select a from t where b = N'x'"));
    EXPECT_NE(Shape("select ab from t"), Shape("select a b from t"));
    EXPECT_NE(Shape("select a from t"), Shape("select [a] from t"));
}

}  // namespace
}  // namespace kelvane::tsql
