#include "adapters/tsql/language/text_rules.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace kelvane::tsql {
namespace {

TEST(TextRules, ComparesWithoutCaseAndTrailingBlanks) {
    EXPECT_EQ(CompareText("p01", "P01  "), 0);
    EXPECT_EQ(CompareText("", "   "), 0);
    EXPECT_NE(CompareText(" p01", "p01"), 0);
    EXPECT_LT(CompareText("a", "B"), 0);
    EXPECT_GT(CompareText("ab", "A"), 0);
    EXPECT_EQ(CompareText("ÀÉžΩЖёＡ", "àéŽωжЁａ"), 0);
    EXPECT_EQ(CompareText("大桥 ", "大桥"), 0);
    EXPECT_NE(CompareText("大桥", "大梁"), 0);
}

TEST(TextRules, AnyBytesCanBeCompared) {
    const std::string broken = "\xE4\xBD";
    EXPECT_EQ(CompareText(broken, broken + ' '), 0);
    EXPECT_NE(CompareText(broken, "\xE4"), 0);
    EXPECT_EQ(CompareText("\xFF\x80", "\xFF\x80"), 0);
    // A byte that is no UTF-8 is not the letter of the same number, nor an overlong form its sign.
    EXPECT_NE(CompareText("\xE9", "é"), 0);
    EXPECT_NE(CompareText("\xE0\x80\xAF", "/"), 0);
}

TEST(TextRules, KnowsWhenAsciiCaseIsEnough) {
    EXPECT_TRUE(HasOnlyAsciiCase("P01 大桥，。"));
    EXPECT_FALSE(HasOnlyAsciiCase("é"));
    EXPECT_FALSE(HasOnlyAsciiCase("É"));
    EXPECT_FALSE(HasOnlyAsciiCase("ａ"));
}

TEST(TextRules, FindsThePartThatAsciiCaseIsEnoughFor) {
    EXPECT_EQ(AsciiCasedPart("P01 大桥"), "P01 大桥");
    EXPECT_EQ(AsciiCasedPart("大桥 Ä1"), "大桥 ");
    EXPECT_EQ(AsciiCasedPart("äB"), "");
    EXPECT_EQ(AsciiCasedPart(""), "");
    EXPECT_EQ(AsciiCasedPart("a\xE4\xBD"), "a");
}

TEST(TextRules, MatchesPatterns) {
    EXPECT_TRUE(MatchesPattern("NumPoint_Num", "numpoint%"));
    EXPECT_FALSE(MatchesPattern("NumMax", "NumPoint%"));
    EXPECT_TRUE(MatchesPattern("", "%"));
    EXPECT_FALSE(MatchesPattern("", "_"));
    EXPECT_TRUE(MatchesPattern("abcbc", "%bc"));
    EXPECT_FALSE(MatchesPattern("abcbd", "%bc"));
    EXPECT_TRUE(MatchesPattern("a中c", "a_C"));
    EXPECT_FALSE(MatchesPattern("P01  ", "P01"));
    EXPECT_FALSE(MatchesPattern("P01", "P01 "));
    EXPECT_TRUE(MatchesPattern("5%", "5[%]"));
    EXPECT_TRUE(MatchesPattern("x7", "x[0-9]"));
    EXPECT_FALSE(MatchesPattern("x7", "x[^0-9]"));
    EXPECT_TRUE(MatchesPattern("]", "[]]"));
    EXPECT_TRUE(MatchesPattern("-", "[a-]"));
    EXPECT_FALSE(MatchesPattern("[", "["));
    EXPECT_FALSE(MatchesPattern("a", "[a"));
    EXPECT_FALSE(MatchesPattern(std::string(3000, 'a'), std::string(500, '%') + "b"));
}

TEST(TextRules, MeasuresText) {
    EXPECT_EQ(WideLength("a中b"), 3U);
    EXPECT_EQ(WideLength("𠀀"), 2U);
    EXPECT_EQ(FirstPart("a中b", 2, false), "a");
    EXPECT_EQ(FirstPart("a中b", 3, false), "a中");
    EXPECT_EQ(FirstPart("a中b", 2, true), "a中");
    EXPECT_EQ(FirstPart("abc", 9, false), "abc");
}

TEST(TextRules, FoldedTextsAreEqualWhereTextsAre) {
    EXPECT_EQ(FoldedText("P01 ÄЖＥ期初😀 "), "p01 äжｅ期初😀 ");
    for (const auto& [a, b] : {std::pair("É1", "é1"), {"ж", "Ж"}, {"ａ", "Ａ"}, {"大", "太"}}) {
        EXPECT_EQ(FoldedText(a) == FoldedText(b), CompareText(a, b) == 0) << a << b;
    }
}

TEST(TextRules, EveryCasedLetterFoldsToItsOther) {
    const CaseLetters letters = CasedLetters();
    EXPECT_EQ(FoldedText(letters.upper), letters.lower);
    EXPECT_EQ(FoldedText(letters.lower), letters.lower);
    EXPECT_FALSE(HasOnlyAsciiCase(letters.upper));
}

}  // namespace
}  // namespace kelvane::tsql
