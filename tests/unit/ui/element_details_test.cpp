#include "ui/entry_list/element_details.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace kelvane::ui {
namespace {

TEST(ElementDetails, AreKnownByIdentity) {
    ElementDetails details;
    details.Add(7, 2);
    EXPECT_EQ(details.FlagOf(7), 2);
    EXPECT_EQ(details.FlagOf(8), 0);
    EXPECT_THROW(details.Add(7, 1), std::invalid_argument);
    details.Replace(7, 1);
    EXPECT_EQ(details.FlagOf(7), 1);
}

TEST(ElementDetails, ANewRowsFlagGoesWithItsEntry) {
    ElementDetails details;
    details.Replace(0, 2);
    details.GiveNewRow(9);
    EXPECT_EQ(details.FlagOf(9), 2);
    EXPECT_EQ(details.FlagOf(0), 0);
    details.GiveNewRow(10);
    EXPECT_EQ(details.FlagOf(10), 0);
}

TEST(ElementDetails, KeepEveryNameOfACode) {
    ElementDetails details;
    details.AddName("E01", "人工费");
    details.AddName("E01  ", "人工");
    details.AddName("E01", "人工费");
    details.AddName("E02", "");
    EXPECT_TRUE(details.IsNameOf("E01 ", "人工费"));
    EXPECT_TRUE(details.IsNameOf("E01", "人工"));
    EXPECT_TRUE(details.IsNameOf("E02", ""));
    EXPECT_FALSE(details.IsNameOf("E01", ""));
    EXPECT_FALSE(details.IsNameOf("E02", "人工"));
    EXPECT_FALSE(details.IsNameOf(" E01", "人工"));
    EXPECT_FALSE(details.IsNameOf("e01", "人工"));
}

}  // namespace
}  // namespace kelvane::ui
