#include "platform/search_key.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace kelvane::platform {
namespace {

// The parts of a cell's key, one after the other.
std::vector<std::string> KeyParts(std::string_view cell) {
    std::string key;
    AppendSearchKey(key, cell);
    std::vector<std::string> parts;
    while (!key.empty()) {
        const std::size_t end = key.find(kKeyEnd);
        EXPECT_NE(end, std::string::npos);
        parts.push_back(key.substr(0, end));
        key.erase(0, end + 1);
    }
    return parts;
}

using testing::ElementsAre;

TEST(SearchKey, FoldsLettersWidthAndControlCharacters) {
    EXPECT_EQ(FoldText("Abc-01 Z"), "abc-01 z");
    EXPECT_EQ(FoldText("Ｐ００１（Ａ）　～"), "p001(a) ~");
    EXPECT_EQ(FoldText("a\tb\nc\x1f"
                       "d\x7f"),
              "a b c d ");
    EXPECT_EQ(FoldText("工程ÄΦ"), "工程ÄΦ");
    EXPECT_EQ(FoldText(""), "");
}

TEST(SearchKey, BrokenUtf8StaysAsItIs) {
    for (const char* text :
         {"\xE5", "\xE5\xB7", "A\xFFz", "\x80", "\xF0\x9F\x98", "\xC3(", "\xE5工"}) {
        EXPECT_EQ(FoldText(text).size(), std::string_view(text).size()) << text;
    }
    EXPECT_EQ(FoldText("A\xFFZ"), "a\xFFz");
    EXPECT_THAT(KeyParts("\xFF工"), ElementsAre("\xFF工", "g"));
}

TEST(SearchKey, PlainTextsHaveOnePart) {
    EXPECT_THAT(KeyParts("P001"), ElementsAre("p001"));
    EXPECT_THAT(KeyParts("Φ12"), ElementsAre("Φ12"));
    EXPECT_THAT(KeyParts(""), ElementsAre(""));
}

TEST(SearchKey, ChineseTextsHaveTheirInitialsToo) {
    EXPECT_THAT(KeyParts("工程一部"), ElementsAre("工程一部", "gcyb"));
    EXPECT_THAT(KeyParts("螺纹钢 HRB400（Φ12）"), ElementsAre("螺纹钢 hrb400(Φ12)", "lwghrb40012"));
}

TEST(SearchKey, EveryWayToReadIt) {
    EXPECT_THAT(KeyParts("重庆银行"), ElementsAre("重庆银行", "zqyx", "cqyx", "zqyh", "cqyh"));
}

TEST(SearchKey, TooManyWaysEndWithTheCustomaryReadings) {
    const auto parts = KeyParts("重行厦乐长朝重行");
    EXPECT_EQ(parts.size(), 17U);
    EXPECT_EQ(parts[1], "zxslzczx");
    EXPECT_TRUE(std::all_of(parts.begin() + 1, parts.end(), [](const std::string& part) {
        return part.size() == 8 && part.ends_with("zczx");
    }));
}

TEST(SearchKey, OrdersChineseTextsByTheirInitials) {
    EXPECT_LT(SortKey("安装部"), SortKey("工程一部"));
    EXPECT_LT(SortKey("工程二部"), SortKey("工程一部"));
    EXPECT_LT(SortKey("a"), SortKey("B"));
    EXPECT_LT(SortKey("P01"), SortKey("P01 "));
    EXPECT_LT(SortKey(""), SortKey("0"));
}

}  // namespace
}  // namespace kelvane::platform
