#include "adapters/tables/workbook.h"

#include <gtest/gtest.h>

#include "adapters/tables/open_table.h"
#include "tests/unit/tables/sample_workbook.h"

namespace kelvane::tables_test {
namespace {

using tables::OpenTableBytes;

std::string ShownSheet(const std::string& rows) {
    SampleWorkbook book;
    book.sheet = SheetData(rows);
    return ShownBytes(book.Bytes());
}

TEST(Workbook, ReadsTextsNumbersAndErrors) {
    EXPECT_EQ(ShownSheet("<row r='2'><c r='A2' t='inlineStr'><is><t>期初</t></is></c>"
                         "<c r='C2'><v>1234.50</v></c><c r='D2' t='n'><v> -3 </v></c>"
                         "<c r='E2' t='e'><v>#DIV/0!</v></c><c r='F2' t='b'><v>1</v></c>"
                         "<c r='G2' t='b'><v>0</v></c></row>"),
              "2 A:t 期初|C:n 1234.50|D:n -3|E:e #DIV/0!|F:t TRUE|G:t FALSE\n");
}

TEST(Workbook, NumbersAreWhatTheFileSays) {
    EXPECT_EQ(ShownSheet("<row r='1'><c r='A1'><v>0.30000000000000004</v></c>"
                         "<c r='B1'><v>12345678901234567890.12345</v></c>"
                         "<c r='C1'><v>1.5E-3</v></c><c r='D1'><v>nan</v></c>"
                         "<c r='E1'><v>1,5</v></c></row>"),
              "1 A:n 0.30000000000000004|B:n 12345678901234567890.12345|C:n 1.5E-3|D:e nan|"
              "E:e 1,5\n");
}

TEST(Workbook, PlacesMayBeLeftOut) {
    EXPECT_EQ(ShownSheet("<row><c><v>1</v></c><c r='D1'><v>2</v></c><c><v>3</v></c></row>"
                         "<row/><row><c/><c><v>4</v></c></row>"),
              "1 A:n 1|D:n 2|E:n 3\n3 B:n 4\n");
}

TEST(Workbook, FormulasHaveTheirStoredValue) {
    EXPECT_EQ(ShownSheet("<row r='1'><c r='A1'><f>1+1</f><v>2</v></c>"
                         "<c r='B1' t='str'><f>\"x\"</f><v>x</v></c><c r='C1'><f>1+1</f></c>"
                         "<c r='D1'><f>1+1</f><v></v></c><c r='E1' t='str'><f>\"\"</f><v></v></c>"
                         "<c r='F1' t='e'><f>1/0</f><v>#DIV/0!</v></c>"
                         "<c r='G1'><f t='shared' si='0'/><v>7</v></c></row>"),
              "1 A:n 2|B:t x|C:f |D:f |F:e #DIV/0!|G:n 7\n");
}

TEST(Workbook, SharedTextsAndTheirRuns) {
    SampleWorkbook book;
    book.strings =
        "<si><t>一</t></si><si><r><rPr><b/></rPr><t>责任</t></r><r><t xml:space='preserve'> 中心"
        "</t></r><rPh sb='0' eb='1'><t>zeren</t></rPh><phoneticPr fontId='1'/></si><si/>"
        "<si><t>a&amp;b&lt;&#x4E2D;<![CDATA[<c>]]></t></si>";
    book.sheet = SheetData(
        "<row r='1'><c r='A1' t='s'><v>1</v></c><c r='B1' t='s'><v>0</v></c>"
        "<c r='C1' t='s'><v>2</v></c><c r='D1' t='s'><v>3</v></c></row>");
    EXPECT_EQ(ShownBytes(book.Bytes()), "1 A:t 责任 中心|B:t 一|D:t a&b<中<c>\n");
    book.sheet = SheetData("<row r='1'><c r='A1' t='s'><v>4</v></c></row>");
    EXPECT_EQ(ShownBytes(book.Bytes()), "a.file：已损坏：缺少单元格的文字");
}

TEST(Workbook, BlanksStayWhereTheFileSaysSo) {
    EXPECT_EQ(
        ShownSheet("<row r='1'><c r='A1' t='inlineStr'><is><t xml:space='preserve'> a </t>"
                   "</is></c><c r='B1' t='inlineStr'><is><t>\n  b\n </t></is></c>"
                   "<c r='C1' t='inlineStr'><is><t xml:space='preserve'> </t></is></c></row>"),
        "1 A:t  a |B:t b|C:t  \n");
}

TEST(Workbook, CharactersThatXmlLacksAreWrittenByNumber) {
    EXPECT_EQ(
        ShownSheet("<row r='1'><c r='A1' t='inlineStr'><is><t>a_x000D_b_x005F_x000D_ _x1 _xZZZZ_"
                   "</t></is></c></row>"),
        "1 A:t a\rb_x000D_ _x1 _xZZZZ_\n");
}

TEST(Workbook, DatesAreToldByTheirFormat) {
    SampleWorkbook book;
    book.styles =
        "<numFmts count='2'><numFmt numFmtId='176' formatCode='yyyy\"年\"m\"月\"d\"日\";@'/>"
        "<numFmt numFmtId='177' formatCode='0.00\"day\"'/></numFmts>"
        "<cellStyleXfs><xf numFmtId='14'/></cellStyleXfs>"
        "<cellXfs count='5'><xf numFmtId='0'/><xf numFmtId='14'/><xf numFmtId='31'/>"
        "<xf numFmtId='176'/><xf numFmtId='177'/></cellXfs>"
        "<dxfs><dxf><numFmt numFmtId='177' formatCode='yyyy'/></dxf></dxfs>";
    book.sheet = SheetData(
        "<row r='1'><c r='A1' s='0'><v>38169</v></c><c r='B1' s='1'><v>38169</v></c>"
        "<c r='C1' s='2'><v>38169.5</v></c><c r='D1' s='3'><v>3.8169E4</v></c>"
        "<c r='E1' s='4'><v>38169</v></c><c r='F1' s='1'><v>-1</v></c>"
        "<c r='G1' t='d'><v>2004-07-01T12:00:00</v></c></row>");
    EXPECT_EQ(ShownBytes(book.Bytes()),
              "1 A:n 38169|B:d 2004-07-01 00:00:00.000 38169|C:d 2004-07-01 12:00:00.000 38169.5|"
              "D:d 2004-07-01 00:00:00.000 3.8169E4|E:n 38169|F:d none -1|"
              "G:d 2004-07-01 12:00:00.000 2004-07-01T12:00:00\n");
    book.properties = "<workbookPr date1904='1'/>";
    book.sheet = SheetData("<row r='1'><c r='A1' s='1'><v>36707</v></c></row>");
    EXPECT_EQ(ShownBytes(book.Bytes()), "1 A:d 2004-07-01 00:00:00.000 36707\n");
    book.sheet = SheetData("<row r='1'><c r='A1' s='9'><v>1</v></c></row>");
    EXPECT_EQ(ShownBytes(book.Bytes()), "a.file：已损坏：缺少单元格的格式");
}

TEST(Workbook, HiddenRowsAreTold) {
    EXPECT_EQ(ShownSheet("<row r='1' hidden='1'><c><v>1</v></c></row>"
                         "<row r='2' hidden='false'><c><v>2</v></c></row>"
                         "<row r='3' ht='0' customHeight='1'><c><v>3</v></c></row>"),
              "1h A:n 1\n2 A:n 2\n3h A:n 3\n");
    SampleWorkbook book;
    book.sheet = "<sheetFormatPr defaultRowHeight='15' zeroHeight='1'/>" +
                 SheetData(
                     "<row r='1'><c><v>1</v></c></row>"
                     "<row r='2' ht='15'><c><v>2</v></c></row>");
    EXPECT_EQ(ShownBytes(book.Bytes()), "1h A:n 1\n2 A:n 2\n");
}

TEST(Workbook, MergedCellsAreToldAtTheEnd) {
    SampleWorkbook book;
    book.sheet = SheetData("<row r='1'><c><v>1</v></c></row>") +
                 "<mergeCells><mergeCell ref='A1:C2'/><mergeCell ref='XFD1048576'/></mergeCells>";
    EXPECT_EQ(ShownBytes(book.Bytes()),
              "1 A:n 1\nmerged 期初!A1 期初!C2\nmerged 期初!XFD1048576 期初!XFD1048576\n");
}

TEST(Workbook, WhatOtherProgramsAddIsPassedOver) {
    SampleWorkbook book;
    book.sheet =
        "<dimension ref='A1:XFD1048576'/><extra "
        "xmlns='urn:other'><row><c><v>9</v></c></row></extra>" +
        SheetData(
            "<row r='1' xmlns:x='urn:other' x:dyDescent='0.25'><c r='A1'><v>1</v>"
            "<x:v>8</x:v><extLst><v>7</v></extLst></c></row>") +
        "<extLst><ext><sheetData><row><c><v>6</v></c></row></sheetData></ext></extLst>";
    EXPECT_EQ(ShownBytes(book.Bytes()), "1 A:n 1\n");
}

TEST(Workbook, NamespacesMayHaveAPrefix) {
    SampleWorkbook book;
    auto parts = book.Parts();
    PartOf(parts, "book/tables/one.xml").content =
        "<x:worksheet xmlns:x='http://purl.oclc.org/ooxml/spreadsheetml/main'><x:sheetData>"
        "<x:row r='1'><x:c r='A1'><x:v>5</x:v></x:c></x:row></x:sheetData></x:worksheet>";
    EXPECT_EQ(ShownBytes(MakeZip(parts)), "1 A:n 5\n");
}

TEST(Workbook, SheetsAreToldByNameAndState) {
    SampleWorkbook book;
    auto parts = book.Parts();
    std::string& main = PartOf(parts, "book/main.xml").content;
    main.replace(main.find("<sheets>"), 8,
                 "<sheets><sheet name='图' sheetId='1' r:id='c'/>"
                 "<sheet name='明细' sheetId='2' state='veryHidden' r:id='m'/>");
    std::string& links = PartOf(parts, "book/_rels/main.xml.rels").content;
    const std::string sheet = links.substr(links.find("<Relationship "),
                                           links.find("/>") + 2 - links.find("<Relationship "));
    std::string chart = sheet;
    chart.replace(chart.find("\"s\""), 3, "\"c\"");
    chart.replace(chart.find("/worksheet"), 10, "/chartsheet");
    std::string second = sheet;
    second.replace(second.find("\"s\""), 3, "\"m\"");
    second.replace(second.find("one.xml"), 7, "TWO.xml");
    links.replace(links.find(sheet), sheet.size(), chart + sheet + second);
    parts.push_back(PartOf(parts, "book/tables/one.xml"));
    parts.back().name = "Book/Tables/two.xml";
    const auto reader = OpenTableBytes(MakeZip(parts), "a.xlsx");
    ASSERT_EQ(reader->Sheets().size(), 2U);
    EXPECT_EQ(reader->Sheets()[0].name, "明细");
    EXPECT_TRUE(reader->Sheets()[0].hidden);
    EXPECT_EQ(reader->Sheets()[1].name, "期初");
    EXPECT_FALSE(reader->Sheets()[1].hidden);
    EXPECT_TRUE(reader->HasTypedCells());
    EXPECT_EQ(reader->Place(1, 7, 3, "摘要"), "期初!C7");
    EXPECT_EQ(reader->Place(1, 7, 0, ""), "期初!A7");
    EXPECT_EQ(reader->Place(0, 0, 0, ""), "明细");
    EXPECT_EQ(Shown(*reader, 0), "");
}

TEST(Workbook, ReadingEndsWhenNoMoreIsWantedAndBeginsAgain) {
    SampleWorkbook book;
    book.sheet = SheetData("<row><c><v>1</v></c></row><row><c><v>2</v></c></row>");
    const auto reader = OpenTableBytes(book.Bytes(), "a.xlsx");
    int rows = 0;
    reader->Read(0, [&](const platform::TableRow& /*row*/) { return ++rows < 1; });
    EXPECT_EQ(rows, 1);
    EXPECT_EQ(Shown(*reader), "1 A:n 1\n2 A:n 2\n");
    EXPECT_THROW(reader->Read(0, [](const platform::TableRow&) -> bool { throw 5; }), int);
    EXPECT_EQ(Shown(*reader), "1 A:n 1\n2 A:n 2\n");
}

TEST(Workbook, RowsAndCellsAreInTheirOrder) {
    EXPECT_EQ(ShownSheet("<row r='2'/><row r='2'/>"), "a.file：已损坏：行的次序不对");
    EXPECT_EQ(ShownSheet("<row r='1'><c r='B1'/><c r='A1'/></row>"),
              "a.file：已损坏：单元格的次序不对");
    EXPECT_EQ(ShownSheet("<row r='1'><c r='A2'/></row>"), "a.file：已损坏：单元格的位置不对");
    EXPECT_EQ(ShownSheet("<row r='1'><c r='XFE1'/></row>"), "a.file：已损坏：没有单元格“XFE1”");
    EXPECT_EQ(ShownSheet("<row r='1048577'/>"), "a.file：已损坏：“1048577”不是应有的数字");
    EXPECT_EQ(ShownSheet("<row r='1048576'/><row/>"), "a.file：已损坏：行的次序不对");
    EXPECT_EQ(ShownSheet("<row r='1'><c r='XFD1'/><c/></row>"), "a.file：已损坏：单元格的次序不对");
    EXPECT_EQ(ShownSheet("<row r='1'><c t='z'/></row>"), "a.file：已损坏：单元格的类型“z”");
}

}  // namespace
}  // namespace kelvane::tables_test
