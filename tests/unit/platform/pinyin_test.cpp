#include "platform/pinyin.h"

#include <gtest/gtest.h>

namespace kelvane::platform {
namespace {

TEST(Pinyin, CharactersOfEverydayNames) {
    const std::u32string name = U"工程一部路桥事业市政公司";
    const std::string expected = "gcyblqsyszgs";
    std::string initials;
    for (const char32_t character : name) initials += PinyinInitials(character).substr(0, 1);
    EXPECT_EQ(initials, expected);
}

TEST(Pinyin, OneInitialWhereAllReadingsBeginAlike) {
    EXPECT_EQ(PinyinInitials(U'工'), "g");
    EXPECT_EQ(PinyinInitials(U'地'), "d");  // de, dì
    EXPECT_EQ(PinyinInitials(U'安'), "a");
    EXPECT_EQ(PinyinInitials(U'欧'), "o");
}

TEST(Pinyin, SeveralInitialsBeginWithTheCustomaryOne) {
    EXPECT_EQ(PinyinInitials(U'重'), "zc");  // zhòng, chóng
    EXPECT_EQ(PinyinInitials(U'行'), "xh");  // xíng, háng
    EXPECT_EQ(PinyinInitials(U'厦'), "sx");  // shà, xià
    EXPECT_EQ(PinyinInitials(U'乐'), "ly");  // lè, yuè
}

TEST(Pinyin, EdgesOfTheStoredBlocks) {
    EXPECT_EQ(PinyinInitials(U'\x3400'), "q");
    EXPECT_EQ(PinyinInitials(U'\x33FF'), "");
    EXPECT_EQ(PinyinInitials(U'\x4DC0'), "");  // a hexagram
    EXPECT_EQ(PinyinInitials(U'\x4DFF'), "");
    EXPECT_EQ(PinyinInitials(U'\x4E00'), "y");
    EXPECT_EQ(PinyinInitials(U'\x9FA5'), "y");
    EXPECT_EQ(PinyinInitials(U'\xA000'), "");
}

TEST(Pinyin, CharactersOutsideTheBlocks) {
    EXPECT_EQ(PinyinInitials(U'〇'), "l");
    EXPECT_EQ(PinyinInitials(U'\x2CE18'), "y");
}

TEST(Pinyin, WhatIsNoChineseCharacterHasNone) {
    for (const char32_t character : {U'\0', U'a', U'Z', U'7', U'。', U'（', U'é', U'あ', U'\xFFFD',
                                     static_cast<char32_t>(0x10FFFF)}) {
        EXPECT_EQ(PinyinInitials(character), "") << static_cast<std::uint32_t>(character);
    }
}

}  // namespace
}  // namespace kelvane::platform
