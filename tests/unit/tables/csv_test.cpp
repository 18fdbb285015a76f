#include <gtest/gtest.h>

#include "adapters/tables/csv_parser.h"
#include "adapters/tables/limits.h"
#include "adapters/tables/open_table.h"
#include "tests/unit/tables/sample_workbook.h"

namespace kelvane::tables_test {
namespace {

using tables::FindSeparator;
using tables::OpenCopiedTable;
using tables::OpenTableBytes;

TEST(Csv, ReadsFieldsAndRows) {
    EXPECT_EQ(ShownBytes("日期,摘要,余额\r\n2004-01-01,,1.50\r\n"),
              "1 A:t 日期|B:t 摘要|C:t 余额\n2 A:t 2004-01-01|C:t 1.50\n");
}

TEST(Csv, QuotedFieldsHoldEverything) {
    EXPECT_EQ(ShownBytes("a,\"b,c\",\"say \"\"yes\"\"\",\"\"\r\n"),
              "1 A:t a|B:t b,c|C:t say \"yes\"\n");
    EXPECT_EQ(ShownBytes("a,5\" pipe,x\n"), "1 A:t a|B:t 5\" pipe|C:t x\n");
}

TEST(Csv, RowsAreToldByTheLineTheyBeginIn) {
    EXPECT_EQ(ShownBytes("a,b\n\"1\n2\r\n3\r4\",c\n\n,\nd,e"),
              "1 A:t a|B:t b\n2 A:t 1\n2\r\n3\r4|B:t c\n8 A:t d|B:t e\n");
    EXPECT_EQ(ShownBytes("a,b\rc,d\r\re,f\r"), "1 A:t a|B:t b\n2 A:t c|B:t d\n4 A:t e|B:t f\n");
}

TEST(Csv, TheLastRowNeedsNoLineBreak) {
    EXPECT_EQ(ShownBytes("a,b\nc,"), "1 A:t a|B:t b\n2 A:t c\n");
    EXPECT_EQ(ShownBytes("a,b\n\"c\""), "1 A:t a|B:t b\n2 A:t c\n");
    EXPECT_EQ(ShownBytes(""), "");
    EXPECT_EQ(ShownBytes("\n\r\n"), "");
}

TEST(Csv, TheApostropheThatKeptAFormulaATextIsTakenAway) {
    EXPECT_EQ(ShownBytes("'=1,\"'-7\",''+1,'＝1,'=,'a,'\n"),
              "1 A:t =1|B:t -7|C:t '+1|D:t ＝1|E:t =|F:t 'a|G:t '\n");
}

TEST(Csv, BlanksStay) {
    EXPECT_EQ(ShownBytes(" a , \n"), "1 A:t  a |B:t  \n");
}

TEST(Csv, QuotesThatDoNotFitAreRefused) {
    EXPECT_EQ(ShownBytes("a,b\nc,\"d\ne,f\ng"), "a.file：第 2 行的引号没有结束");
    EXPECT_EQ(ShownBytes("a,b\n\"c\nd\"e,f\n"), "a.file：第 3 行引号后面还有文字");
}

TEST(Csv, TheSeparatorIsFoundOut) {
    EXPECT_EQ(FindSeparator("a,b,c\nd,e,f\n"), ',');
    EXPECT_EQ(FindSeparator("a;b;c\n1,5;2,5;3\n"), ';');
    EXPECT_EQ(FindSeparator("a\tb\tc\n1,5\t2;5\t3\n"), '\t');
    EXPECT_EQ(FindSeparator("\"x;y\",b\n\"x;y\",d\n"), ',');
    EXPECT_EQ(FindSeparator("\"a\";\"b\"\n\"c\";\"d\"\n"), ';');
    EXPECT_EQ(FindSeparator("one\ntwo\n"), ',');
    EXPECT_EQ(FindSeparator("大标题, 2004, 年\na;b;c;d\n1,000.00;x;y;z\n2,000.00;x;y;z\n"), ';');
}

TEST(Csv, TheSeparatorIsFoundInATextThatIsCutOff) {
    EXPECT_EQ(FindSeparator("a\tb\tc\n1\t2\t\"" + std::string(100, ',')), '\t');
}

TEST(Csv, Places) {
    const auto reader = OpenTableBytes("a,b\n", "期初.csv");
    EXPECT_EQ(reader->Place(0, 7, 3, "项目编号"), "期初.csv:7:项目编号");
    EXPECT_EQ(reader->Place(0, 7, 0, ""), "期初.csv:7");
    EXPECT_EQ(reader->Place(0, 0, 0, ""), "期初.csv");
    EXPECT_FALSE(reader->HasTypedCells());
    ASSERT_EQ(reader->Sheets().size(), 1U);
    EXPECT_EQ(reader->Sheets()[0].name, "");
}

TEST(Csv, PositionsCountBlankRows) {
    const auto reader = OpenTableBytes("\"a\nb\",x\n\nc,d\n", "t");
    std::vector<int> positions;
    reader->Read(0, [&](const platform::TableRow& row) {
        positions.push_back(row.position);
        return true;
    });
    EXPECT_EQ(positions, (std::vector<int>{1, 3}));
}

TEST(Csv, ReadingEndsWhenNoMoreIsWanted) {
    const auto reader = OpenTableBytes("a\nb\n\"c", "t");
    int rows = 0;
    reader->Read(0, [&](const platform::TableRow& /*row*/) { return ++rows < 2; });
    EXPECT_EQ(rows, 2);
}

TEST(Csv, WhatHoldsNoLimitIsRefused) {
    EXPECT_EQ(ShownBytes("a\nb,\"" + std::string(tables::kMaxCellBytes + 1, 'x') + "\"\n"),
              "a.file：第 2 行文字太长");
    EXPECT_EQ(ShownBytes("a\n" + std::string(tables::kMaxColumn, ',') + "\n"),
              "a.file：第 2 行列太多");
    EXPECT_EQ(ShownBytes(std::string(tables::kMaxBytes + 1, '\n')), "a.file：文件太大");
}

TEST(Csv, ManyBlankRowsCostNothing) {
    EXPECT_EQ(ShownBytes("a,b\n" + std::string(10'000'000, '\n') + "c,d\n"),
              "1 A:t a|B:t b\n10000002 A:t c|B:t d\n");
}

TEST(CopiedTable, IsPartedByTabs) {
    const auto reader = OpenCopiedTable("日期\t余额\r\n2004-1-1\t\"1,234.50\r\n元\"\r\n");
    EXPECT_EQ(Shown(*reader), "1 A:t 日期|B:t 余额\n2 A:t 2004-1-1|B:t 1,234.50\r\n元\n");
    EXPECT_EQ(reader->Place(0, 2, 2, "余额"), "剪贴板:2:余额");
}

TEST(CopiedTable, WithoutTabsIsReadAsAFile) {
    EXPECT_EQ(Shown(*OpenCopiedTable("a,b\nc,d\n")), "1 A:t a|B:t b\n2 A:t c|B:t d\n");
}

}  // namespace
}  // namespace kelvane::tables_test
