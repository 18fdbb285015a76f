#include "platform/text_search.h"

#include <gtest/gtest.h>

namespace kelvane::platform {
namespace {

bool Finds(std::string_view typed, std::string_view cells) {
    return TextSearch(typed).Finds(cells);
}

TEST(TextSearch, FindsAPartOfAText) {
    EXPECT_TRUE(Finds("234", "\t2004-06-01\t1,234.50"));
    EXPECT_TRUE(Finds("人工", "一月人工费"));
    EXPECT_FALSE(Finds("人费", "一月人工费"));
}

TEST(TextSearch, CaseAndWidthDoNotMatter) {
    EXPECT_TRUE(Finds("p０1", "P01"));
    EXPECT_TRUE(Finds("P01", "ｐ０１号"));
    EXPECT_TRUE(Finds("　甲 ", "材料甲"));
}

TEST(TextSearch, SpellsChineseTextsByTheirInitials) {
    EXPECT_TRUE(Finds("rgf", "一月人工费"));
    EXPECT_TRUE(Finds("yYr", "一月人工费"));
    EXPECT_FALSE(Finds("rf", "一月人工费"));
    EXPECT_TRUE(Finds("3hl", "新（3）号楼"));
}

TEST(TextSearch, EveryReadingOfACharacterCounts) {
    // 重 is read zhong and chong, 长 chang and zhang.
    for (const char* typed : {"zc", "zz", "cc", "cz"}) EXPECT_TRUE(Finds(typed, "重长")) << typed;
    EXPECT_FALSE(Finds("zs", "重长"));
}

TEST(TextSearch, OneTextAloneIsFound) {
    EXPECT_FALSE(Finds("ab", "a\tb"));
    EXPECT_FALSE(Finds("a b", "a\tb"));
    EXPECT_FALSE(Finds("rg", "人\t工"));
    EXPECT_TRUE(Finds("b", "a\tb"));
    EXPECT_FALSE(Finds("p01", "P-01"));  // spelled are Chinese texts only
}

TEST(TextSearch, InitialsThatRepeatAreNotMissed) {
    EXPECT_TRUE(Finds("rrg", "人人人工"));
    EXPECT_TRUE(Finds("rgf", "人工\t人工费"));
    EXPECT_FALSE(Finds("rgff", "人工费"));
    EXPECT_TRUE(Finds(std::string(64, 'r') + "g", std::string(65, 'r') + "g"));
    EXPECT_FALSE(Finds(std::string(65, 'r'), "人工"));
}

TEST(TextSearch, NothingTypedIsFoundNowhere) {
    EXPECT_TRUE(TextSearch("  ").IsEmpty());
    EXPECT_FALSE(Finds(" ", "a b"));
    EXPECT_FALSE(Finds("", ""));
}

TEST(TextSearch, TheSameSearchGoesOnThroughManyTexts) {
    TextSearch search("gc");
    EXPECT_TRUE(search.Finds("工程"));
    EXPECT_FALSE(search.Finds("材料"));
    EXPECT_TRUE(search.Finds("\t\t钢材"));
    EXPECT_FALSE(search.Finds(""));
}

}  // namespace
}  // namespace kelvane::platform
