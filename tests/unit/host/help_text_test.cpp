#include "host/commands/help_text.h"

#include <gtest/gtest.h>

namespace kelvane::host_test {
namespace {

using Lines = std::vector<std::string>;
using host::WrappedLines;

TEST(WrappedLines, EndAtBlanks) {
    EXPECT_EQ(WrappedLines("one two three", 80), (Lines{"one two three"}));
    EXPECT_EQ(WrappedLines("one two three", 7), (Lines{"one two", "three"}));
    EXPECT_EQ(WrappedLines("one two three", 6), (Lines{"one", "two", "three"}));
    EXPECT_EQ(WrappedLines("a  b ", 80), (Lines{"a b"}));
    EXPECT_EQ(WrappedLines("", 80), (Lines{""}));
}

TEST(WrappedLines, LeaveWhatIsTooLongWhole) {
    EXPECT_EQ(WrappedLines("a unbreakable b", 5), (Lines{"a", "unbreakable", "b"}));
}

TEST(WrappedLines, EndBetweenWideCharactersOfTwoColumns) {
    EXPECT_EQ(WrappedLines("期初余额表", 6), (Lines{"期初余", "额表"}));
    EXPECT_EQ(WrappedLines("期初余额表", 7), (Lines{"期初余", "额表"}));
    EXPECT_EQ(WrappedLines("写入 file.csv 文件", 9), (Lines{"写入", "file.csv", "文件"}));
    EXPECT_EQ(WrappedLines("写入file.csv文件", 12), (Lines{"写入file.csv", "文件"}));
}

TEST(WrappedLines, NeverBeginWithAClosingMark) {
    EXPECT_EQ(WrappedLines("期初余，额", 6), (Lines{"期初", "余，额"}));
}

}  // namespace
}  // namespace kelvane::host_test
