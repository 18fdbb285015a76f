#include "platform/ascii.h"

#include <gtest/gtest.h>

namespace kelvane::platform {
namespace {

TEST(Ascii, LettersChangeCaseAndNothingElse) {
    EXPECT_EQ(LowerAscii("AZ az 09_[@`{"), "az az 09_[@`{");
    EXPECT_EQ(UpperAscii("AZ az 09_[@`{"), "AZ AZ 09_[@`{");
}

TEST(Ascii, BytesOfOtherLettersStay) {
    EXPECT_EQ(LowerAscii("Ä期初É"), "Ä期初É");
    EXPECT_EQ(UpperAscii("ä期初é"), "ä期初é");
}

TEST(Ascii, IsTheFirstHalfOfABytesValues) {
    EXPECT_TRUE(IsAscii("aZ 09_[~\x7F"));
    EXPECT_TRUE(IsAscii(""));
    EXPECT_FALSE(IsAscii("a期"));
    EXPECT_FALSE(IsAscii("\x80"));
}

TEST(Ascii, ComparesWithoutLetterCase) {
    EXPECT_TRUE(EqualIgnoringCase("cItemCode", "CITEMcode"));
    EXPECT_TRUE(EqualIgnoringCase("", ""));
    EXPECT_FALSE(EqualIgnoringCase("cItemCode", "cItemCode "));
    EXPECT_FALSE(EqualIgnoringCase("Ä", "ä"));
    EXPECT_FALSE(EqualIgnoringCase("[", "{"));
}

}  // namespace
}  // namespace kelvane::platform
