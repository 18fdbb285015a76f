#include "ui/common/wrapped_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "controls/text_width.h"

namespace kelvane::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

int WidthOf(std::string_view text) {
    return controls::EstimateTextWidth(text);
}

TEST(WrappedTextTest, AShortTextTakesOneLine) {
    EXPECT_THAT(WrapText("", 1000, 3), IsEmpty());
    EXPECT_THAT(WrapText("一二三", WidthOf("一二三"), 3), ElementsAre("一二三"));
}

TEST(WrappedTextTest, ALineEndsWhereThereIsNoMoreRoom) {
    EXPECT_THAT(WrapText("一二三四五六七", WidthOf("一二三"), 3),
                ElementsAre("一二三", "四五六", "七"));
    EXPECT_THAT(WrapText("一二三四五六七", WidthOf("一二三") + 1, 3),
                ElementsAre("一二三", "四五六", "七"));
}

TEST(WrappedTextTest, ALineEndsBehindAMarkNearItsEnd) {
    EXPECT_THAT(WrapText("一二三，四五六七", WidthOf("一二三四五"), 3),
                ElementsAre("一二三，", "四五六七"));
    EXPECT_THAT(WrapText("一，二三四五六七", WidthOf("一二三四五"), 3),
                ElementsAre("一，二三四", "五六七"));
}

TEST(WrappedTextTest, TheLastLineTakesTheRest) {
    EXPECT_THAT(WrapText("一二三四五六七", WidthOf("一二"), 2), ElementsAre("一二", "三四五六七"));
}

TEST(WrappedTextTest, WithoutRoomALineHasOneCharacter) {
    EXPECT_THAT(WrapText("一二三", 0, 3), ElementsAre("一", "二", "三"));
}

}  // namespace
}  // namespace kelvane::ui
