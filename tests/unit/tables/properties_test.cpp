// What a program noted in a workbook for itself.
#include <gtest/gtest.h>

#include "adapters/tables/limits.h"
#include "adapters/tables/open_table.h"
#include "tests/unit/tables/sample_workbook.h"

namespace kelvane::tables_test {
namespace {

constexpr std::string_view kKind =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/custom-properties";

// A workbook whose properties are the part `content`; the link to it has `more`.
std::vector<ZipPart> BookOf(const std::string& content, const std::string& kind,
                            const std::string& more = {}) {
    SampleWorkbook book;
    book.sheet = SheetData("<row r='1'><c r='A1'><v>1</v></c></row>");
    auto parts = book.Parts();
    std::string& links = PartOf(parts, "_rels/.rels").content;
    links.insert(links.find("<Relationship "),
                 "<Relationship Id=\"p\" Target=\"notes/own.xml\" "
                 "Type=\"" +
                     kind + "\" " + more + "/>");
    if (!content.empty()) parts.push_back({"notes/own.xml", content});
    return parts;
}

// Each "NAME=TEXT", or why they cannot be read.
std::string PropertiesOf(const std::vector<ZipPart>& parts) try {
    const auto reader = tables::OpenTableBytes(MakeZip(parts), "a.xlsx");
    EXPECT_EQ(Shown(*reader), "1 A:n 1\n");
    std::string shown;
    for (const auto& [name, text] : reader->Properties()) shown += name + "=" + text + "\n";
    EXPECT_EQ(Shown(*reader), "1 A:n 1\n");
    return shown;
} catch (const platform::TableRefused& refused) {
    return refused.what();
}

std::string Properties(const std::string& content) {
    return "<Properties xmlns='http://schemas.openxmlformats.org/officeDocument/2006/"
           "custom-properties' xmlns:vt='http://schemas.openxmlformats.org/officeDocument/2006/"
           "docPropsVTypes'>" +
           content + "</Properties>";
}

std::string Property(const std::string& name, const std::string& value) {
    return "<property fmtid='{D5}' pid='2' name='" + name + "'>" + value + "</property>";
}

std::string PropertiesOf(const std::string& content) {
    return PropertiesOf(BookOf(Properties(content), std::string(kKind)));
}

TEST(Properties, AreTextsWhateverTheirKind) {
    EXPECT_EQ(PropertiesOf(Property("版本", "<vt:i4>1</vt:i4>") +
                           Property("a&amp;b", "\n <vt:lpwstr> 一_x000D_&lt; </vt:lpwstr>\n") +
                           Property("no", "<vt:bool>true</vt:bool><other xmlns='urn:x'>x</other>")),
              "a&b= 一\r< \nno=true\n版本=1\n");
    EXPECT_EQ(PropertiesOf(Property("a", "<vt:vector><vt:lpwstr>1</vt:lpwstr></vt:vector>") +
                           "<other name='b'><vt:i4>1</vt:i4></other>" + Property("c", "")),
              "a=\nc=\n");
}

TEST(Properties, AreFoundByTheirRelationshipAlone) {
    const std::string content = Properties(Property("a", "<vt:i4>1</vt:i4>"));
    EXPECT_EQ(PropertiesOf(BookOf(content, "urn:x/core-properties")), "");
    EXPECT_EQ(PropertiesOf(BookOf(content, "http://purl.oclc.org/x/customProperties")), "a=1\n");
}

TEST(Properties, TextsHaveNone) {
    EXPECT_TRUE(tables::OpenTableBytes("a,b\n", "a.csv")->Properties().empty());
    EXPECT_TRUE(tables::OpenCopiedTable("a\tb\n")->Properties().empty());
}

TEST(Properties, OfAHostileFileAreRefused) {
    const std::string kind(kKind);
    EXPECT_EQ(PropertiesOf(BookOf("", kind)), "a.xlsx：已损坏：缺少部件 notes/own.xml");
    EXPECT_EQ(PropertiesOf(BookOf("<a/>", kind)), "a.xlsx：已损坏：notes/own.xml 不是应有的内容");
    EXPECT_EQ(PropertiesOf(BookOf("<Properties>", kind)),
              "a.xlsx：已损坏：notes/own.xml 第 1 行不是有效的 XML");
    EXPECT_EQ(PropertiesOf(BookOf("<!DOCTYPE a [<!ENTITY b 'c'>]>" + Properties(""), kind)),
              "a.xlsx：已损坏：notes/own.xml 带有文档类型声明（DOCTYPE）");
    EXPECT_EQ(PropertiesOf(BookOf(Properties(""), kind, "TargetMode=\"External\"")),
              "a.xlsx：已损坏：属性不在文件中");
    const std::string one = Property("a", "<vt:i4>1</vt:i4>");
    EXPECT_EQ(PropertiesOf(one + one), "a.xlsx：已损坏：一个属性有两次");
    EXPECT_EQ(
        PropertiesOf(Property(
            "a", "<vt:lpwstr>" + std::string(tables::kMaxCellBytes + 1, 'a') + "</vt:lpwstr>")),
        "a.xlsx：一个属性中的文字太长");
    std::string many;
    for (std::size_t at = 0; at <= tables::kMaxProperties; ++at) {
        many += Property(std::to_string(at), "");
    }
    EXPECT_EQ(PropertiesOf(many), "a.xlsx：属性太多");
}

}  // namespace
}  // namespace kelvane::tables_test
