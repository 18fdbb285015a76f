// Which column of a foreign table is which: what its titles say, and what the operator does.
#include "ui/import/column_choice.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace kelvane::ui {
namespace {

using platform::CellKind;
using platform::TableRow;
using testing::Each;
using testing::ElementsAre;

class ColumnChoiceTest : public testing::Test {
protected:
    static TableRow Row(int number, const std::vector<std::string>& texts) {
        TableRow row{number, number, false, {}};
        int column = 0;
        for (const std::string& text : texts) {
            ++column;
            if (!text.empty()) row.cells.push_back({column, CellKind::Text, text, {}});
        }
        return row;
    }
    int PlaceOf(int column) const {
        const auto& columns = choice.Columns();
        const auto at = std::ranges::find(columns, column, &entries::TableColumn::column);
        return choice.Places()[static_cast<std::size_t>(at - columns.begin())];
    }

    entries::TableShape shape = entries::EntryTableShape({}, {}, false);
    ColumnChoice choice{shape};
    const std::vector<TableRow> rows{Row(1, {"某公司"}), Row(3, {"金额", "日期", "", "要素"}),
                                     Row(4, {"5", "2004-06-01", "x", "人工费"})};
};

TEST_F(ColumnChoiceTest, TheRowWithMostTitlesSaysWhatItCan) {
    choice.Take(rows, {});
    EXPECT_EQ(choice.TitleRow(), 3);
    EXPECT_THAT(choice.Rows(), ElementsAre(1, 3, 4));
    EXPECT_EQ(PlaceOf(entries::kDateColumn), 2);
    EXPECT_EQ(PlaceOf(entries::kElementColumn), 4);
    EXPECT_EQ(PlaceOf(entries::kAmountColumn), 0);
    EXPECT_EQ(choice.Width(), 4);
    EXPECT_EQ(choice.NameOf(1), "A 金额");
    EXPECT_EQ(choice.NameOf(3), "C");
    EXPECT_EQ(choice.SampleOf(1), "5");
    EXPECT_EQ(choice.PlaceNamed("A 金额"), 1);
    EXPECT_EQ(choice.PlaceNamed("D"), 4);
    EXPECT_EQ(choice.PlaceNamed("E"), 0);
    EXPECT_EQ(choice.PlaceNamed(""), 0);
}

TEST_F(ColumnChoiceTest, WithoutTitlesColumnsHaveTheirLetters) {
    choice.Take(rows, {});
    choice.SetTitleRow(0);
    EXPECT_EQ(choice.NameOf(1), "A");
    EXPECT_EQ(choice.SampleOf(1), "某公司");
    EXPECT_EQ(PlaceOf(entries::kDateColumn), 2) << "what was chosen stays";
}

TEST_F(ColumnChoiceTest, TitlesSayWhatTheyCanWhenNothingWasChosen) {
    choice.Take({Row(1, {"某公司"}), Row(2, {"x", "日期"})},
                entries::GivenColumns{1, std::vector<entries::BulkTable::Place>(
                                             static_cast<std::size_t>(shape.columnCount))});
    EXPECT_THAT(choice.Places(), Each(0));
    choice.SetTitleRow(2);
    EXPECT_EQ(PlaceOf(entries::kDateColumn), 2);
}

TEST_F(ColumnChoiceTest, WhatIsKnownComesBeforeTheTitles) {
    choice.Take(rows, {});
    choice.SetPlace(0, 1);
    const entries::GivenColumns given = choice.Given();
    EXPECT_EQ(given.titleRow, 3);
    EXPECT_EQ(given.places[entries::kDateColumn].column, 1);
    EXPECT_EQ(given.places[entries::kDateColumn].title, "金额");
    ColumnChoice again(shape);
    again.Take(rows, given);
    EXPECT_EQ(again.Places(), choice.Places());
}

TEST_F(ColumnChoiceTest, ColumnsOfTheProgramsOwnTablesAreThereWhenTheyAreNamed) {
    const auto has = [this](int column) {
        return std::ranges::any_of(choice.Columns(),
                                   [column](const auto& each) { return each.column == column; });
    };
    choice.Take(rows, {});
    EXPECT_FALSE(has(entries::kIdentityColumn));
    EXPECT_TRUE(has(entries::kRowNumberColumn));
    choice.Take({Row(1, {"日期", "编号"})}, {});
    EXPECT_TRUE(has(entries::kIdentityColumn));
    EXPECT_EQ(PlaceOf(entries::kIdentityColumn), 2);
}

TEST(ColumnLetters, AreThoseOfASpreadsheet) {
    EXPECT_EQ(ColumnLetters(1), "A");
    EXPECT_EQ(ColumnLetters(26), "Z");
    EXPECT_EQ(ColumnLetters(27), "AA");
    EXPECT_EQ(ColumnLetters(702), "ZZ");
    EXPECT_EQ(ColumnLetters(703), "AAA");
}

}  // namespace
}  // namespace kelvane::ui
