// Which column is which, kept for tables of the same titles.
#include "ui/import/kept_columns.h"

#include <gtest/gtest.h>

#include "tests/support/remembered_settings.h"

namespace kelvane::ui {
namespace {

using entries::GivenColumns;
using platform::TableRow;

TableRow Row(int number, const std::vector<std::string>& texts) {
    TableRow row{number, number, false, {}};
    int column = 0;
    for (const std::string& text : texts) {
        row.cells.push_back({++column, platform::CellKind::Text, text, {}});
    }
    return row;
}

class KeptColumnsTest : public testing::Test {
protected:
    GivenColumns Given(int date, int amount) const {
        GivenColumns given{2, {}};
        given.places.resize(static_cast<std::size_t>(shape.columnCount));
        given.places[entries::kDateColumn].column = date;
        given.places[entries::kAmountColumn].column = amount;
        return given;
    }

    support::RememberedSettings settings;
    KeptColumns kept{&settings};
    entries::TableShape shape = entries::EntryTableShape({}, {}, false);
    TableRow titles = Row(2, {"金额", "记账日"});
};

TEST_F(KeptColumnsTest, TheSameTitlesAreKnownInAnyRow) {
    kept.Keep(titles, shape, Given(2, 1));
    const auto found = kept.Find({Row(1, {"某公司"}), Row(7, {" 金 额", "记账日"})}, shape);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->titleRow, 7);
    EXPECT_EQ(found->places[entries::kDateColumn].column, 2);
    EXPECT_EQ(found->places[entries::kDateColumn].title, "记账日");
    EXPECT_EQ(found->places[entries::kAmountColumn].column, 1);
    EXPECT_EQ(found->places[entries::kDigestColumn].column, 0);
}

TEST_F(KeptColumnsTest, OtherTitlesAreNot) {
    kept.Keep(titles, shape, Given(2, 1));
    EXPECT_FALSE(kept.Find({Row(2, {"金额"})}, shape));
    EXPECT_FALSE(kept.Find({Row(2, {"记账日", "金额"})}, shape));
    EXPECT_FALSE(kept.Find({titles}, entries::LineTableShape()));
    EXPECT_FALSE(KeptColumns(nullptr).Find({titles}, shape));
}

TEST_F(KeptColumnsTest, WhatWasNotWrittenHereIsPassedOver) {
    kept.Keep(titles, shape, Given(2, 1));
    ASSERT_EQ(settings.texts.size(), 1U);
    settings.texts.begin()->second = "1=2 99=1 -3=1 2=0 9=x";
    const auto found = kept.Find({titles}, shape);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->places[entries::kDateColumn].column, 2);
    for (int column = 2; column < shape.columnCount; ++column) {
        EXPECT_EQ(found->places[static_cast<std::size_t>(column)].column, 0);
    }
}

TEST_F(KeptColumnsTest, NothingIsKeptWithoutSettings) {
    KeptColumns(nullptr).Keep(titles, shape, Given(2, 1));
    EXPECT_EQ(settings.writes, 0);
}

}  // namespace
}  // namespace kelvane::ui
