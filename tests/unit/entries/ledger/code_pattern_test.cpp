#include "entries/ledger/code_pattern.h"

#include <gtest/gtest.h>

namespace kelvane::entries {
namespace {

TEST(CodePattern, IsWhatACellSaysAndAnythingWhereItIsBlank) {
    EXPECT_EQ(PatternOf(" X01 "), "X01");
    EXPECT_EQ(PatternOf(""), "*");
    EXPECT_EQ(PatternOf("  "), "*");
    EXPECT_EQ(PatternOf("＊"), "*");
    EXPECT_EQ(PatternOf("12＊"), "12*");
}

TEST(CodePattern, HasItsStarAtTheEnd) {
    for (const char* pattern : {"*", "12*", "12"}) EXPECT_TRUE(IsPattern(pattern)) << pattern;
    for (const char* pattern : {"*12", "1*2", "**", "1**"}) {
        EXPECT_FALSE(IsPattern(pattern)) << pattern;
    }
}

TEST(CodePattern, CoversCodesAsTheAccountComparesThem) {
    EXPECT_TRUE(Covers("*", ""));
    EXPECT_TRUE(Covers("*", "X01"));
    EXPECT_TRUE(Covers("X01", "X01"));
    EXPECT_TRUE(Covers("X01", "x01 "));
    EXPECT_FALSE(Covers("X01", "X011"));
    EXPECT_FALSE(Covers("X01", " X01"));
    EXPECT_TRUE(Covers("X0*", "X0"));
    EXPECT_TRUE(Covers("X0*", "x0123"));
    EXPECT_FALSE(Covers("X0*", "X1"));
    EXPECT_FALSE(Covers("X01", "*"));
}

TEST(CodePattern, AWiderOneCoversAllOfANarrowerOne) {
    EXPECT_TRUE(CoversAll("*", "*"));
    EXPECT_TRUE(CoversAll("*", "12*"));
    EXPECT_TRUE(CoversAll("1*", "12*"));
    EXPECT_TRUE(CoversAll("1*", "12"));
    EXPECT_TRUE(CoversAll("x1", "X1"));
    EXPECT_FALSE(CoversAll("12*", "1*"));
    EXPECT_FALSE(CoversAll("12", "12*"));
    EXPECT_FALSE(CoversAll("12*", "*"));
    const MappedAccount any{"1", "*", "*", "*"};
    const MappedAccount one{"2", "P*", "人工费", "*"};
    EXPECT_TRUE(CoversAll(any, one));
    EXPECT_FALSE(CoversAll(one, any));
    EXPECT_FALSE(CoversAll(one, MappedAccount{"3", "P01", "机械费", "*"}));
    EXPECT_TRUE(CoversAll(one, MappedAccount{"3", "P01", "人工费", "01"}));
}

TEST(CodePattern, AnAccountIsWithoutTheBlanksThatShowItsLevel) {
    EXPECT_EQ(AccountOf("  1604 "), "1604");
    EXPECT_EQ(AccountOf("\u3000\u00A01604\t"), "1604");
    EXPECT_EQ(AccountOf("在建 工程"), "在建 工程");
    EXPECT_EQ(AccountOf(" \u3000"), "");
}

}  // namespace
}  // namespace kelvane::entries
