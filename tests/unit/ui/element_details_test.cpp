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

}  // namespace
}  // namespace kelvane::ui
