// Files that are damaged, or made to do harm: each of them is refused, and says why.
#include <gtest/gtest.h>

#include "adapters/tables/limits.h"
#include "adapters/tables/open_table.h"
#include "tests/unit/tables/sample_workbook.h"

namespace kelvane::tables_test {
namespace {

std::string Repeated(const std::string& text, std::size_t times) {
    std::string all;
    all.reserve(text.size() * times);
    for (; times > 0; --times) all += text;
    return all;
}

std::string Refusal(const std::vector<ZipPart>& parts) {
    const std::string shown = ShownBytes(MakeZip(parts));
    const std::string name = "a.file：";
    return shown.starts_with(name) ? shown.substr(name.size()) : "read: " + shown.substr(0, 100);
}

// A sound workbook of one number.
std::vector<ZipPart> Sound() {
    SampleWorkbook book;
    book.sheet = SheetData("<row r='1'><c r='A1'><v>1</v></c></row>");
    return book.Parts();
}

// It with this in the place of the part `name`.
std::string RefusalOf(std::string_view name, const std::string& content) {
    auto parts = Sound();
    PartOf(parts, name).content = content;
    // To pack it takes longer than to read it.
    PartOf(parts, name).deflated = content.size() < 1'000'000;
    return Refusal(parts);
}

std::string RefusalOfSheet(const std::string& content) {
    return RefusalOf("book/tables/one.xml", "<worksheet xmlns='urn:x'>" + content + "</worksheet>");
}

constexpr std::string_view kSheet = "book/tables/one.xml";
const std::string kDamagedSheet = "已损坏：book/tables/one.xml";

TEST(Hostile, TheSampleItselfIsSound) {
    EXPECT_EQ(ShownBytes(MakeZip(Sound())), "1 A:n 1\n");
}

TEST(Hostile, OlderAndEncryptedFiles) {
    const std::string magic = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";
    std::string container = magic + std::string(2048 - magic.size(), '\0');
    container[30] = 9;
    container[48] = 1;
    EXPECT_EQ(ShownBytes(container), "a.file：是旧格式（.xls），请另存为 .xlsx");
    EXPECT_EQ(ShownBytes(magic), "a.file：是旧格式（.xls），请另存为 .xlsx");
    std::string name;
    for (const char c : std::string("EncryptedPackage")) name += std::string{c, '\0'};
    container.replace(1024 + 128, name.size(), name);
    EXPECT_EQ(ShownBytes(container), "a.file：已加密，请取消密码后另存");
    auto parts = Sound();
    PartOf(parts, kSheet).flags = 1;
    EXPECT_EQ(Refusal(parts), "已加密，请取消密码后另存");
}

TEST(Hostile, ArchivesThatAreNoWorkbooks) {
    EXPECT_EQ(Refusal({{"a.txt", "x"}}), "不是 .xlsx 工作簿");
    auto parts = Sound();
    PartOf(parts, "book/main.xml").name = "book/main.bin";
    EXPECT_EQ(Refusal(parts), "不是 .xlsx 工作簿");
    EXPECT_EQ(ShownBytes("PK\x03\x04 and nothing"), "a.file：已损坏，或不是 .xlsx 工作簿");
    EXPECT_EQ(ShownBytes("PK,b\n"), "1 A:t PK|B:t b\n") << "a text may begin so";
}

TEST(Hostile, PartsThatAreMoreOrLessThanSaid) {
    for (const std::uint32_t size : {0U, 1U, 300U, 5'000U}) {
        auto parts = Sound();
        PartOf(parts, kSheet).saidSize = size;
        EXPECT_TRUE(Refusal(parts).starts_with(kDamagedSheet)) << size;
    }
    auto large = Sound();
    PartOf(large, kSheet).saidSize = 0xFFFFFFF0;
    EXPECT_EQ(Refusal(large), "展开后太大");
    auto parts = Sound();
    PartOf(parts, kSheet).saidChecksum = 7;
    EXPECT_EQ(Refusal(parts), kDamagedSheet);
}

TEST(Hostile, WhatComesOutIsCounted) {
    auto parts = Sound();
    ZipPart& sheet = PartOf(parts, kSheet);
    sheet.content += std::string(tables::kMaxBytes, ' ');
    sheet.saidSize = 1'000'000;
    EXPECT_TRUE(Refusal(parts).starts_with("已损坏：")) << "no more comes out than was said";
    sheet.saidSize = {};
    EXPECT_EQ(Refusal(parts), "展开后太大");
}

// A workbook with a second sheet that is the same.
std::vector<ZipPart> TwoSheets(const std::string& content) {
    auto parts = Sound();
    ZipPart& sheet = PartOf(parts, kSheet);
    sheet.content = "<worksheet xmlns='urn:x'>" + content + "</worksheet>";
    sheet.deflated = false;
    ZipPart second = sheet;
    second.name = "book/tables/two.xml";
    parts.push_back(second);
    std::string& links = PartOf(parts, "book/_rels/main.xml.rels").content;
    std::string link = links.substr(links.find("<Relationship "));
    link.erase(link.find("/>") + 2);
    const std::string first = link;
    link.replace(link.find("\"s\""), 3, "\"2\"");
    link.replace(link.find("one"), 3, "two");
    links.insert(links.find(first), link);
    std::string& main = PartOf(parts, "book/main.xml").content;
    main.replace(main.find("<sheets>"), 8, "<sheets><sheet name='2' r:id='2'/>");
    return parts;
}

TEST(Hostile, SheetsCountTogetherButOnceEach) {
    const std::string blanks = "<a/>" + std::string(9'996, ' ');
    for (const std::string& content : {Repeated(blanks, tables::kMaxBytes / blanks.size() / 8 * 5),
                                       Repeated("<a/>", tables::kMaxXmlEvents / 8 * 5)}) {
        const auto reader = tables::OpenTableBytes(MakeZip(TwoSheets(content)), "a");
        EXPECT_EQ(Shown(*reader, 0), "");
        EXPECT_EQ(Shown(*reader, 0), "") << "it was counted";
        EXPECT_THROW(Shown(*reader, 1), platform::TableRefused);
        EXPECT_EQ(Shown(*reader, 0), "");
    }
}

TEST(Hostile, APartOfOneNameTwice) {
    auto parts = Sound();
    parts.push_back({"Book/Main.xml", "x"});
    EXPECT_EQ(Refusal(parts), "已损坏，或不是 .xlsx 工作簿");
}

TEST(Hostile, TooManyParts) {
    auto parts = Sound();
    while (parts.size() <= tables::kMaxParts) {
        parts.push_back({"x" + std::to_string(parts.size()), "", false});
    }
    EXPECT_EQ(Refusal(parts), "部件太多");
}

TEST(Hostile, RelationshipsThatLeadNowhereOrBack) {
    auto parts = Sound();
    parts.erase(parts.begin());
    EXPECT_EQ(Refusal(parts), "不是 .xlsx 工作簿");
    parts = Sound();
    parts.erase(parts.begin() + 1);
    EXPECT_EQ(Refusal(parts), "已损坏：缺少部件 book/_rels/main.xml.rels");
    const auto links = [](const std::string& from, const std::string& to) {
        auto changed = Sound();
        std::string& content = PartOf(changed, "book/_rels/main.xml.rels").content;
        content.replace(content.find(from), from.size(), to);
        return Refusal(changed);
    };
    EXPECT_EQ(links("tables/one.xml", "tables/two.xml"), "已损坏：缺少部件 book/tables/two.xml");
    EXPECT_EQ(links("tables/one.xml", "main.xml"), "已损坏：book/main.xml 不是应有的内容");
    EXPECT_EQ(links("../looks.xml", "main.xml"), "已损坏：book/main.xml 不是应有的内容");
    EXPECT_EQ(links("../looks.xml", "../../../../etc/passwd"), "已损坏：缺少部件 etc/passwd");
    EXPECT_EQ(links("\"s\"", "\"q\""), "已损坏：工作表“期初”不在文件中");
    EXPECT_EQ(links("\"tables/one.xml\"", "\"http://localhost/x\" TargetMode=\"External\""),
              "已损坏：工作表“期初”不在文件中");
    auto twice = Sound();
    std::string& main = PartOf(twice, "book/main.xml").content;
    main.replace(main.find("<sheets>"), 8, "<sheets><sheet name='a' r:id='s'/>");
    EXPECT_EQ(Refusal(twice), "已损坏：两个工作表有同样的内容");
}

TEST(Hostile, DocumentTypesAreRefusedInEveryPart) {
    for (const ZipPart& part : Sound()) {
        for (const char* type : {"<!DOCTYPE a>", "<!DOCTYPE a SYSTEM 'file:///etc/passwd'>",
                                 "<!DOCTYPE a [<!ENTITY e 'x'><!ENTITY f '&e;&e;&e;'>]>",
                                 "<!DOCTYPE a [<!ENTITY % p SYSTEM 'file:///etc/passwd'>%p;]>"}) {
            std::string content = part.content;
            content.insert(content.find("?>") + 2, type);
            EXPECT_EQ(RefusalOf(part.name, content),
                      "已损坏：" + part.name + " 带有文档类型声明（DOCTYPE）");
        }
    }
}

TEST(Hostile, XmlThatIsNone) {
    EXPECT_EQ(RefusalOf(kSheet, ""), kDamagedSheet + " 第 1 行不是有效的 XML");
    EXPECT_EQ(RefusalOfSheet("<sheetData>"), kDamagedSheet + " 第 1 行不是有效的 XML");
    EXPECT_EQ(RefusalOfSheet("&other;"), kDamagedSheet + " 第 1 行不是有效的 XML");
    EXPECT_EQ(RefusalOf(kSheet, "<html/>"), kDamagedSheet + " 不是应有的内容");
}

TEST(Hostile, XmlThatTakesLong) {
    using tables::kMaxXmlAttributes;
    using tables::kMaxXmlDepth;
    EXPECT_EQ(RefusalOfSheet(Repeated("<a>", kMaxXmlDepth) + Repeated("</a>", kMaxXmlDepth)),
              kDamagedSheet + " 层次太深");
    std::string attributes;
    std::string spaces;
    for (std::size_t at = 0; at <= kMaxXmlAttributes; ++at) {
        attributes += " a" + std::to_string(at) + "=''";
        spaces += "<a xmlns:n" + std::to_string(at) + "='urn:n'>";
    }
    EXPECT_EQ(RefusalOfSheet("<a" + attributes + "/>"), kDamagedSheet + " 中有太多属性");
    EXPECT_EQ(RefusalOfSheet(spaces.substr(0, spaces.size() / 2) + "<x y='1' " +
                             attributes.substr(0, 100)),
              kDamagedSheet + " 第 1 行不是有效的 XML");
    std::string many;
    for (int at = 0; at < 100'000; ++at) many += " a" + std::to_string(at) + "=''";
    EXPECT_EQ(RefusalOfSheet("<a" + many + "/>"), kDamagedSheet + " 中有太长的内容");
    EXPECT_EQ(RefusalOfSheet(Repeated("<a/>", tables::kMaxXmlEvents)),
              "内容太多：book/tables/one.xml");
    EXPECT_EQ(RefusalOfSheet(Repeated("<?a?>", tables::kMaxXmlEvents)),
              "内容太多：book/tables/one.xml");
}

TEST(Hostile, TextsThatAreTooLong) {
    const std::string text(tables::kMaxCellBytes + 1, 'x');
    EXPECT_EQ(RefusalOfSheet(SheetData("<row><c><v>" + text + "</v></c></row>")),
              "一个单元格中的文字太长");
    EXPECT_EQ(RefusalOfSheet(
                  SheetData("<row><c t='inlineStr'><is><r><t>" + text + "</t></r></is></c></row>")),
              "一个单元格中的文字太长");
    const std::string cell = "<c t='str'><v>" + std::string(60'000, 'x') + "</v></c>";
    EXPECT_EQ(RefusalOfSheet(SheetData("<row>" + Repeated(cell, 100) + "</row>")),
              "一行中的文字太长");
}

TEST(Hostile, SharedTextsThatAreTooMany) {
    SampleWorkbook book;
    book.strings = Repeated("<si/>", tables::kMaxSharedTexts / 2 + 1);
    book.sheet = SheetData("<row r='1'><c r='A1' t='s'><v>0</v></c></row>");
    EXPECT_EQ(ShownBytes(book.Bytes()), "") << "these are not";
    book.strings = Repeated("<si><t>" + std::string(60'000, 'x') + "</t></si>", 1'200);
    EXPECT_EQ(ShownBytes(book.Bytes()), "a.file：文字太多");
}

TEST(Hostile, SheetsThatAreMostlyNothing) {
    std::string rows;
    for (int row = 1; row < 1'048'576; ++row) rows += "<row r='" + std::to_string(row) + "'/>";
    EXPECT_EQ(
        RefusalOfSheet(SheetData(rows + "<row r='1048576'><c r='XFD1048576'><v>5</v></c></row>")),
        "read: 1048576 XFD:n 5\n");
    // A sheet whose every cell is written: no more of it is read than the limits allow.
    const std::string row = "<row>" + Repeated("<c s='0'/>", tables::kMaxColumn) + "</row>";
    const std::string refusal = RefusalOfSheet(SheetData(Repeated(row, 500)));
    EXPECT_EQ(refusal, "内容太多：book/tables/one.xml");
}

TEST(Hostile, TooManyMergedCells) {
    EXPECT_EQ(RefusalOfSheet("<mergeCells>" +
                             Repeated("<mergeCell ref='A1:B2'/>", tables::kMaxMergedRanges + 1) +
                             "</mergeCells>"),
              "合并的单元格太多");
}

// Whatever is cut off or changed, the reading ends.
TEST(Hostile, EveryPartOfAFileMayBeMissing) {
    const std::string whole = MakeZip(Sound());
    // The last bytes are the length of a comment that is not there.
    for (std::size_t length = 8; length < whole.size() - 3; ++length) {
        EXPECT_TRUE(ShownBytes(whole.substr(0, length)).starts_with("a.file：")) << length;
    }
}

TEST(Hostile, EveryByteOfAFileMayBeAnother) {
    const std::string whole = MakeZip(Sound());
    std::size_t refused = 0;
    for (std::size_t at = 0; at < whole.size(); ++at) {
        for (const char change : {'\x01', '\x80', '\xFF'}) {
            std::string changed = whole;
            changed[at] = static_cast<char>(changed[at] ^ change);
            if (ShownBytes(changed).starts_with("a.file：")) ++refused;
        }
    }
    // What is not looked at, such as dates, may be anything.
    EXPECT_GT(refused, whole.size());
}

}  // namespace
}  // namespace kelvane::tables_test
