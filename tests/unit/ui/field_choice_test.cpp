#include "ui/summary/field_choice.h"

#include <gtest/gtest.h>

namespace kelvane::ui {
namespace {

using enum entries::SummaryField;

TEST(FieldChoiceTest, BeginsWithItemAndElement) {
    const FieldChoice choice;
    EXPECT_EQ(choice.Names(), "项目、要素");
    EXPECT_EQ(choice.NameAt(1), "要素");
    EXPECT_EQ(choice.NameAt(2), "");
}

TEST(FieldChoiceTest, AFieldGoesIntoTheFirstFreePlace) {
    FieldChoice choice;
    choice.Set(4, Month);
    EXPECT_EQ(choice.Names(), "项目、要素、月份");
    choice.Set(2, Keyword);
    EXPECT_EQ(choice.Names(), "项目、要素、关键字");
}

TEST(FieldChoiceTest, AFieldStandsInOnePlace) {
    FieldChoice choice;
    choice.Set(2, Month);
    choice.Set(0, Month);
    EXPECT_EQ(choice.Names(), "月份、要素、项目");
    choice.Set(4, Month);
    EXPECT_EQ(choice.Names(), "要素、项目、月份");
    choice.Set(1, Item);
    EXPECT_EQ(choice.Names(), "要素、项目、月份");
}

TEST(FieldChoiceTest, NoPlaceIsLeftOut) {
    FieldChoice choice;
    choice.Set(2, Center);
    choice.Set(0, std::nullopt);
    EXPECT_EQ(choice.Names(), "要素、责任中心");
    choice.Set(3, std::nullopt);
    EXPECT_EQ(choice.Names(), "要素、责任中心");
    choice.Set(0, std::nullopt);
    choice.Set(0, std::nullopt);
    EXPECT_EQ(choice.Names(), "");
    EXPECT_TRUE(choice.Fields().empty());
    choice.Set(3, Item);
    EXPECT_EQ(choice.Names(), "项目");
}

TEST(FieldChoiceTest, AFieldIsKnownByItsCaption) {
    EXPECT_EQ(SummaryFieldNamed("责任中心"), Center);
    EXPECT_EQ(SummaryFieldNamed("月份"), Month);
    EXPECT_EQ(SummaryFieldNamed("月"), std::nullopt);
    EXPECT_EQ(SummaryFieldNamed(""), std::nullopt);
}

}  // namespace
}  // namespace kelvane::ui
