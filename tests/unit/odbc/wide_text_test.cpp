#include "adapters/odbc/wide_text.h"

#include <gtest/gtest.h>

namespace kelvane::odbc {
namespace {

std::string Back(const WideText& wide) {
    std::string text = "what was there before";
    FromWide(wide.data(), wide.size(), text);
    return text;
}

TEST(WideTexts, ComeBackAsTheyWere) {
    for (const std::string text : {"", "plain", "é", "期初余额", "宽😀x𠮷", "\x7F\xC2\x80"}) {
        EXPECT_EQ(Back(ToWide(text)), text);
    }
    EXPECT_EQ(Back(ToWide(std::string("a\0b", 3))), std::string("a\0b", 3));
}

TEST(WideTexts, UseSurrogatePairs) {
    const WideText wide = ToWide("😀");
    ASSERT_EQ(wide.size(), 2U);
    EXPECT_EQ(wide[0], 0xD83D);
    EXPECT_EQ(wide[1], 0xDE00);
    EXPECT_EQ(ToWide("\xF4\x8F\xBF\xBF").size(), 2U);
}

TEST(WideTexts, ReplaceWhatIsNoText) {
    const WideText lone{SQLWCHAR{'a'}, SQLWCHAR{0xD83D}, SQLWCHAR{'b'}, SQLWCHAR{0xDE00}};
    EXPECT_EQ(Back(lone),
              "a\xEF\xBF\xBD"
              "b\xEF\xBF\xBD");
    EXPECT_EQ(Back(ToWide("a\xFF"
                          "b")),
              "a\xEF\xBF\xBD"
              "b");
    EXPECT_EQ(Back(ToWide("\xE5\xAE")), "\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(Back(ToWide("\xED\xA0\x80")).substr(0, 3), "\xEF\xBF\xBD");
    EXPECT_EQ(Back(ToWide("\xC0\xAF")).substr(0, 3), "\xEF\xBF\xBD");
}

}  // namespace
}  // namespace kelvane::odbc
