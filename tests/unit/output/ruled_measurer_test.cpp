#include "adapters/output/layout/ruled_measurer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kelvane::output_test {

using output::LetterRuler;
using output::RuledMeasurer;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr std::string_view kArabic = "بيان";

// By it every byte is 36 points wide, and twice that in bold letters.
class NotingRuler : public LetterRuler {
public:
    explicit NotingRuler(std::vector<std::string>& asked) : mAsked(asked) {}

    std::int64_t Width(std::string_view text, bool bold) override {
        mAsked.emplace_back(text);
        return static_cast<std::int64_t>(text.size()) * 36 * kUnitsPerPoint * (bold ? 2 : 1);
    }

private:
    std::vector<std::string>& mAsked;
};

class RuledMeasurerTest : public testing::Test {
protected:
    int Width(std::string_view text, int size = LetterRuler::kLetterSize, bool bold = false) {
        return mMeasurer.Width(text, {size, bold});
    }

    std::vector<std::string> mAsked;
    int mMade = 0;
    RuledMeasurer mMeasurer{[this] {
        ++mMade;
        return std::make_unique<NotingRuler>(mAsked);
    }};
};

// In thousandths of a millimetre.
constexpr int kHalfInch = 12'700;

}  // namespace

TEST_F(RuledMeasurerTest, MakesItsRulerWhenItMeasuresFirst) {
    EXPECT_EQ(mMade, 0);
    EXPECT_EQ(Width(""), 0);
    EXPECT_EQ(mMade, 0);
    Width("a");
    Width("b");
    EXPECT_EQ(mMade, 1);
}

TEST_F(RuledMeasurerTest, AsksOnceWhatACharacterIsWide) {
    EXPECT_EQ(Width("abba项项"), (4 + 2 * 3) * kHalfInch);
    EXPECT_EQ(Width("ab项"), (2 + 3) * kHalfInch);
    EXPECT_THAT(mAsked, ElementsAre("a", "b", "项"));
}

TEST_F(RuledMeasurerTest, WidthGoesWithTheLettersSize) {
    EXPECT_EQ(Width("ab", 100), 2 * kHalfInch / 10);
    EXPECT_EQ(Width("ab", 90), 2 * kHalfInch * 9 / 100);
    EXPECT_EQ(Width("ab", 1), 25);
}

TEST_F(RuledMeasurerTest, BoldLettersAreMeasuredByThemselves) {
    EXPECT_EQ(Width("a", 1000, true), 2 * kHalfInch);
    EXPECT_EQ(Width("a", 1000, false), kHalfInch);
    EXPECT_THAT(mAsked, ElementsAre("a", "a"));
}

TEST_F(RuledMeasurerTest, LettersThatJoinAreMeasuredTogether) {
    const std::string text = "1" + std::string(kArabic);
    EXPECT_EQ(Width(text), static_cast<int>(text.size()) * kHalfInch);
    EXPECT_THAT(mAsked, ElementsAre("1", text));
}

TEST_F(RuledMeasurerTest, WhatIsNoTextIsMeasuredAsItIsShown) {
    EXPECT_EQ(Width("\xFF"), 3 * kHalfInch);
    EXPECT_EQ(Width("\x01\xFF"), 6 * kHalfInch);
    EXPECT_THAT(mAsked, ElementsAre("\uFFFD", "\uFFFD\uFFFD"));
}

// Chinese letters fill a square, whatever the system's fonts are.
TEST(SystemRulerTest, ChineseLettersAreAsWideAsTheyAreHigh) {
    RuledMeasurer measurer;
    constexpr int kHeight = 3528;  // of 10 points
    EXPECT_NEAR(measurer.Width("项", {100, false}), kHeight, kHeight / 50);
    EXPECT_NEAR(measurer.Width("项目期初", {100, true}), 4 * kHeight, 4 * kHeight / 50);
    EXPECT_EQ(measurer.Width("111", {100, false}), measurer.Width("888", {100, false}));
    EXPECT_LT(measurer.Width("1", {100, false}), kHeight);
}

}  // namespace kelvane::output_test
