#include "entries/bulk/cell_text.h"

#include <gtest/gtest.h>

#include "tests/unit/entries/bulk/memory_table.h"

namespace kelvane::entries_test {
namespace {

using entries::AmountText;
using entries::CellUse;
using entries::OnlyCodeOf;

// The text of a cell, or the id and the text of what is wrong with it.
std::string Of(const TableCell& cell, CellUse use, bool typed = true,
               const entries::CodeProposal& propose = {}) {
    const entries::TableColumn column{entries::kItemColumn, use, true, {"项目编号"}};
    const auto text = TextOfCell(cell, column, entries::Rule::AmountNumber, typed, propose);
    if (const auto* finding = std::get_if<entries::Finding>(&text)) {
        return std::string(finding->id) + ": " + finding->text;
    }
    return std::get<std::string>(text);
}

TEST(AmountText, TakesWhatAnOperatorWrites) {
    const std::vector<std::pair<std::string, std::string>> amounts{
        {"1234.5", "1234.5"},
        {"1,234.50", "1234.50"},
        {"1,234,567", "1234567"},
        {"¥1234.5", "1234.5"},
        {"￥1,234.50", "1234.50"},
        {"-¥5", "-5"},
        {"¥-5", "-5"},
        {"+3", "+3"},
        {" 7 ", "7"},
        {"１，２３４．５０", "1234.50"},
        {".5", ".5"},
        {"-.5", "-.5"},
        {"12.", "12"},
        {"0.30000000000000004", "0.30000000000000004"},
        {"\u00A012\u00A0", "12"}};
    for (const auto& [text, amount] : amounts) EXPECT_EQ(AmountText(text), amount) << text;
}

TEST(AmountText, RefusesWhatMayBeAnotherAmount) {
    for (const char* text :
         {"1.234,50", "12,34",     "1,2345", "1234,567", "1,234,56", ",123",   "1,",
          "1,,234",   "1,234.5,6", "1.2.3",  "1 234",    "1e3",      "1.2E+3", "--5",
          "-¥-5",     "¥",         "-",      ".",        "",         "x",      "(5)",
          "5元",      "$5",        "12-",    "0x10"}) {
        EXPECT_EQ(AmountText(text), std::nullopt) << text;
    }
}

TEST(CellText, NumbersAreTheirDigits) {
    EXPECT_EQ(Of(Number("0.30000000000000004"), CellUse::Number), "0.30000000000000004");
    EXPECT_EQ(Of(Number("1.5E-3"), CellUse::Number), "0.0015");
    EXPECT_EQ(Of(Number("1E+16"), CellUse::Number), "10000000000000000");
    EXPECT_EQ(Of(Number("1E+300"), CellUse::Number), "1E+300");
    EXPECT_EQ(Of(Text("1,234.50"), CellUse::Number), "1234.50");
    EXPECT_EQ(Of(Text(" "), CellUse::Number), " ");
    EXPECT_EQ(Of({}, CellUse::Number), "");
    EXPECT_EQ(Of(Text("1.234,50"), CellUse::Number), "amount.number: 请输入数字");
    EXPECT_EQ(Of(Date({2004, 7, 1}), CellUse::Number), "amount.number: 请输入数字");
}

TEST(CellText, DatesAreDaysAndWrittenDatesStay) {
    EXPECT_EQ(Of(Date({2004, 7, 1}), CellUse::Date), "2004-07-01");
    EXPECT_EQ(Of(Text("04.7.1"), CellUse::Date), "04.7.1");
    EXPECT_EQ(Of(Text(" ２００４／７／１"), CellUse::Date), "2004/7/1");
    EXPECT_EQ(Of(Number("38169"), CellUse::Date), "cell.date: 38169 不是日期");
    EXPECT_EQ(Of(Date({2004, 7, 1, 12}, "38169.5"), CellUse::Date),
              "cell.date: 2004-07-01 12:00:00 不是日期");
    EXPECT_EQ(Of(Date({0, 0, 0}, "-1"), CellUse::Date), "cell.date: -1 不是日期");
}

TEST(CellText, CodesAreTexts) {
    EXPECT_EQ(Of(Text("0101"), CellUse::Code), "0101");
    EXPECT_EQ(Of(Number("101"), CellUse::Code),
              "cell.code.number: 编码应为文本，此处是数字 101，可能缺少前面的 0");
    EXPECT_EQ(Of(Date({2001, 2, 3}, "36925"), CellUse::Code),
              "cell.code.number: 编码应为文本，此处是数字 36925，可能缺少前面的 0");
    const auto propose = [](int column, std::string_view number) {
        EXPECT_EQ(column, entries::kItemColumn);
        return number == "101" ? std::optional<std::string>("0101") : std::nullopt;
    };
    EXPECT_EQ(Of(Number("101"), CellUse::Code, true, propose),
              "cell.code.number: 编码应为文本，此处是数字，可能是编码 0101");
    EXPECT_EQ(Of(Number("102"), CellUse::Code, true, propose),
              "cell.code.number: 编码应为文本，此处是数字 102，可能缺少前面的 0");
}

TEST(CellText, CodesThatASpreadsheetRewroteAreRefused) {
    for (const char* text : {"1.23457E+17", "1E+17", "1.5e-05", " 2E+11 "}) {
        EXPECT_TRUE(Of(Text(text), CellUse::Code).starts_with("cell.code.number: 编码 ")) << text;
        EXPECT_TRUE(Of(Text(text), CellUse::Code, false).starts_with("cell.code.number")) << text;
    }
    EXPECT_EQ(Of(Text("123456789012345000"), CellUse::Code, false),
              "cell.code.number: 编码 123456789012345000 已被电子表格改写，原来的编码无法得知");
    EXPECT_EQ(Of(Text("123456789012345000"), CellUse::Code), "123456789012345000");
    EXPECT_EQ(Of(Text("123456789012345678"), CellUse::Code, false), "123456789012345678");
    for (const char* text : {"1E5", "E+5", "PE-12", "1E+", "A1E+5", "100000000000000"}) {
        EXPECT_EQ(Of(Text(text), CellUse::Code, false), text);
    }
}

TEST(CellText, TextsTakeWhatIsShown) {
    EXPECT_EQ(Of(Text(" 摘要 "), CellUse::Text), " 摘要 ");
    EXPECT_EQ(Of(Number("12.50"), CellUse::Text), "12.5");
    EXPECT_EQ(Of(Date({2004, 7, 1}), CellUse::Text), "2004-07-01");
    EXPECT_EQ(Of(Number("1"), CellUse::Label), "1");
    EXPECT_EQ(Of(Text("1E+05"), CellUse::Label), "1E+05");
}

TEST(CellText, ErrorsAndFormulasWithoutResultAreRefusedEverywhere) {
    for (const CellUse use :
         {CellUse::Text, CellUse::Code, CellUse::Label, CellUse::Date, CellUse::Number}) {
        EXPECT_EQ(Of({1, CellKind::Error, "#N/A", {}}, use), "cell.error: 单元格是错误值 #N/A");
        EXPECT_EQ(Of({1, CellKind::NoResult, "", {}}, use),
                  "cell.formula: 公式没有保存计算结果，须重新计算后保存");
    }
}

TEST(OnlyCodeOf, IsTheOneCodeThatIsTheNumber) {
    const std::vector<std::string> codes{
        "0101", "101A", "0202", "202", "1.10", "X", "123456789012345678"};
    EXPECT_EQ(OnlyCodeOf("101", codes), "0101");
    EXPECT_EQ(OnlyCodeOf("202", codes), std::nullopt) << "two are";
    EXPECT_EQ(OnlyCodeOf("303", codes), std::nullopt);
    EXPECT_EQ(OnlyCodeOf("1.1", codes), "1.10");
    EXPECT_EQ(OnlyCodeOf("1.23456789012346E+17", codes), std::nullopt) << "rounded up";
    EXPECT_EQ(OnlyCodeOf("123456789012345000", codes), "123456789012345678");
    EXPECT_EQ(OnlyCodeOf("x", codes), std::nullopt);
}

}  // namespace
}  // namespace kelvane::entries_test
