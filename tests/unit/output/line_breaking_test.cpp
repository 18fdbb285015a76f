#include "adapters/output/layout/line_breaking.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/unit/output/sample_sheet.h"

namespace kelvane::output_test {

using output::BreakLines;
using output::Letters;
using testing::ElementsAre;

namespace {

constexpr Letters kLetters{100, false};

// Broken to so many Latin letters.
std::vector<std::string_view> Broken(std::string_view text, int letters) {
    static FixedMeasurer measurer;
    return BreakLines(text, kLetters, letters * FixedMeasurer::HalfLetter(kLetters.size), measurer);
}

TEST(LineBreaking, KeepsWhatFits) {
    EXPECT_THAT(Broken("一二三", 6), ElementsAre("一二三"));
}

TEST(LineBreaking, GivesAnEmptyTextOneLine) {
    EXPECT_THAT(Broken("", 6), ElementsAre(""));
}

TEST(LineBreaking, BreaksChineseTextAnywhere) {
    EXPECT_THAT(Broken("安全文明施工费", 8), ElementsAre("安全文明", "施工费"));
}

TEST(LineBreaking, KeepsClosingPunctuationWithItsText) {
    EXPECT_THAT(Broken("一二三，四五", 6), ElementsAre("一二", "三，四", "五"));
}

TEST(LineBreaking, KeepsOpeningBracketsWithTheirText) {
    EXPECT_THAT(Broken("一二（三四", 6), ElementsAre("一二", "（三四"));
}

TEST(LineBreaking, KeepsWordsAndNumbersTogether) {
    EXPECT_THAT(Broken("硅酸盐水泥P.O42.5", 14), ElementsAre("硅酸盐水泥", "P.O42.5"));
    EXPECT_THAT(Broken("steel bar", 6), ElementsAre("steel", "bar"));
}

TEST(LineBreaking, BreaksAWordThatIsWiderThanTheColumn) {
    EXPECT_THAT(Broken("ABCDEFGH", 3), ElementsAre("ABC", "DEF", "GH"));
}

TEST(LineBreaking, GivesEachLineACharacterInTheNarrowestColumn) {
    EXPECT_THAT(Broken("一二", 1), ElementsAre("一", "二"));
}

TEST(LineBreaking, LosesNothingButTheBlanksAtTheBreaks) {
    const std::string text = "甲供 材料, 转入 2004 年度 A-1/B-2 结转（一）。";
    std::string joined;
    for (const auto line : Broken(text, 7)) joined += line;
    const auto withoutBlanks = [](std::string of) {
        std::erase(of, ' ');
        return of;
    };
    EXPECT_EQ(withoutBlanks(joined), withoutBlanks(text));
}

TEST(LineBreaking, TakesBytesThatAreNoText) {
    EXPECT_THAT(Broken("\xFF\xFE\xFF", 4), testing::SizeIs(2));
}

}  // namespace

}  // namespace kelvane::output_test
