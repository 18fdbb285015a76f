#include "entries/checked_budget.h"

#include <gtest/gtest.h>

namespace kelvane::entries {
namespace {

using platform::Money;

CheckedBudget Checked(const char* amount) {
    return {{7, "P01", "人工费"}, "E01", Money::FromText(amount), Money::FromInteger(1000)};
}

StoredEntry Before(const char* item, const char* element, const char* amount) {
    StoredEntry entry{.texts = {}, .elementCode = element, .amount = Money::FromText(amount)};
    entry.texts[kItemColumn] = item;
    return entry;
}

TEST(TakesMore, AnEntryThatWasNotThereTakesWhatIsAboveNothing) {
    EXPECT_TRUE(TakesMore(Checked("0.01"), std::nullopt));
    EXPECT_FALSE(TakesMore(Checked("0"), std::nullopt));
    EXPECT_FALSE(TakesMore(Checked("-5"), std::nullopt));
}

TEST(TakesMore, AnEntryTakesWhatItHasMoreThanBefore) {
    EXPECT_TRUE(TakesMore(Checked("300.01"), Before("P01", "E01", "300")));
    EXPECT_FALSE(TakesMore(Checked("300"), Before("P01", "E01", "300")));
    EXPECT_FALSE(TakesMore(Checked("299"), Before("P01", "E01", "300")));
    EXPECT_TRUE(TakesMore(Checked("-1"), Before("P01", "E01", "-2")));
}

TEST(TakesMore, WhatItTookOfAnotherBudgetDoesNotCount) {
    EXPECT_TRUE(TakesMore(Checked("1"), Before("P02", "E01", "300")));
    EXPECT_TRUE(TakesMore(Checked("1"), Before("P01", "E02", "300")));
    EXPECT_FALSE(TakesMore(Checked("-1"), Before("P02", "E01", "-300")));
}

// As the account compares codes.
TEST(TakesMore, LetterCaseAndBlanksAtTheEndMakeNoOtherBudget) {
    EXPECT_FALSE(TakesMore(Checked("300"), Before("p01 ", "e01  ", "300")));
    EXPECT_TRUE(TakesMore(Checked("300"), Before(" P01", "E01", "300")));
}

}  // namespace
}  // namespace kelvane::entries
