#include "platform/letter_case.h"

#include <gtest/gtest.h>

namespace kelvane::platform {
namespace {

TEST(LetterCase, CapitalLettersBecomeSmallOnes) {
    EXPECT_EQ(InSmallLetters("P01 ÄŽÑΣЖЁⅣＥ期初😀 "), "p01 äžñσжёⅳｅ期初😀 ");
    EXPECT_EQ(InSmallLetters("p01 äžñσжёⅳｅ"), "p01 äžñσжёⅳｅ");
    EXPECT_EQ(InSmallLetters(""), "");
    EXPECT_EQ(SmallLetter(U'×'), U'×');
}

TEST(LetterCase, HasAnotherForm) {
    for (const char32_t letter : {U'Ä', U'ä', U'Ж', U'ж', U'Ｅ', U'ｅ'}) {
        EXPECT_TRUE(HasWideCase(letter)) << static_cast<unsigned>(letter);
    }
    for (const char32_t letter : {U'a', U'A', U'1', U'×', U'期', U'😀'}) {
        EXPECT_FALSE(HasWideCase(letter)) << static_cast<unsigned>(letter);
    }
}

TEST(LetterCase, CodesAreComparedWithoutCaseAndEndBlanks) {
    EXPECT_EQ(ComparedText("P01  "), ComparedText("p01"));
    EXPECT_EQ(ComparedText("ÄＥ "), ComparedText("äｅ"));
    EXPECT_NE(ComparedText(" P01"), ComparedText("P01"));
    EXPECT_NE(ComparedText("P01\t"), ComparedText("P01"));
    EXPECT_NE(ComparedText("Ｐ01"), ComparedText("P01"));
    EXPECT_EQ(ComparedText("   "), "");
}

}  // namespace
}  // namespace kelvane::platform
