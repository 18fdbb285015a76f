#include "adapters/odbc/literal_text.h"

#include <gtest/gtest.h>

namespace kelvane::odbc {
namespace {

using tsql::Datum;
using Kind = tsql::Type::Kind;

TEST(LiteralTexts, AreTheDialects) {
    EXPECT_EQ(LiteralText(Datum(), {Kind::Int, 0}), "null");
    EXPECT_EQ(LiteralText(Datum(std::int64_t{-5}), {Kind::Int, 0}), "-5");
    EXPECT_EQ(LiteralText(Datum(0.1), {Kind::Float, 0}), "0.1");
    EXPECT_EQ(LiteralText(Datum(std::string("-12.3456")), {Kind::Money, 0}), "-12.3456");
    EXPECT_EQ(LiteralText(Datum(std::string("2004-06-30 00:00:00.000")), {Kind::DateTime, 0}),
              "'2004-06-30'");
    EXPECT_EQ(LiteralText(Datum(std::string("2004-06-30 12:00:00.997")), {Kind::DateTime, 0}),
              "'2004-06-30 12:00:00.997'");
}

TEST(LiteralTexts, QuoteTexts) {
    EXPECT_EQ(LiteralText(Datum(std::string("a'b''c")), {Kind::VarChar, 20}), "'a''b''''c'");
    EXPECT_EQ(LiteralText(Datum(std::string("宽'")), {Kind::VarChar, 20}), "N'宽'''");
    EXPECT_EQ(LiteralText(Datum(std::string("x 00:00:00.000")), {Kind::VarChar, 20}),
              "'x 00:00:00.000'");
}

TEST(LiteralTexts, PutNamesInBracketsWhereTheyNeedThem) {
    EXPECT_EQ(NameText("PM_ItemQC"), "PM_ItemQC");
    EXPECT_EQ(NameText("a b]c"), "[a b]]c]");
    EXPECT_EQ(NameText("9x"), "[9x]");
    EXPECT_EQ(NameText("标段"), "[标段]");
    EXPECT_EQ(NameText("a\xC2\xA0"), "[a\xC2\xA0]");
}

}  // namespace
}  // namespace kelvane::odbc
