#include "adapters/output/formats/xml_parser.h"

#include <gtest/gtest.h>

namespace kelvane::output_test {

using output::IsReadableXml;
using output::ParseXml;
using output::XmlElement;

namespace {

std::string Refusal(const std::string& text) {
    try {
        ParseXml(text);
    } catch (const output::XmlRefused& refused) {
        return refused.what();
    }
    return "read";
}

std::string Repeated(const std::string& text, std::size_t times) {
    std::string all;
    for (; times > 0; --times) all += text;
    return all;
}

std::string Attributes(std::size_t count) {
    std::string text;
    for (std::size_t at = 0; at < count; ++at) text += " a" + std::to_string(at) + "=''";
    return text;
}

TEST(XmlParser, ReadsElementsAndAttributes) {
    const XmlElement root = ParseXml(
        "<?xml version='1.0'?>\r\n<!-- a --><格式 a='1' b=\"&lt;&#x4e2d;&amp;&#38;&quot;\">"
        "text<b/><![CDATA[<x/>]]><b c=''><d/></b></格式>\n");
    EXPECT_EQ(root.name, "格式");
    ASSERT_NE(root.Attribute("b"), nullptr);
    EXPECT_EQ(*root.Attribute("b"), "<中&&\"");
    EXPECT_EQ(root.Attribute("c"), nullptr);
    ASSERT_EQ(root.children.size(), 2U);
    EXPECT_EQ(root.children[0].name, "b");
    EXPECT_EQ(*root.children[1].Attribute("c"), "");
    EXPECT_EQ(root.children[1].children.at(0).name, "d");
}

TEST(XmlParser, RefusesADocumentTypeWhateverItHolds) {
    const std::string reason = "line 2: a document type is not allowed";
    for (const std::string type :
         {"<!DOCTYPE a>", "<!DOCTYPE a SYSTEM 'file:///etc/passwd'>",
          "<!DOCTYPE a PUBLIC 'p' 'http://localhost/a.dtd'>", "<!DOCTYPE a []>",
          "<!DOCTYPE a [<!ENTITY e 'x'><!ENTITY f '&e;&e;'>]>",
          "<!DOCTYPE a [<!ENTITY % p SYSTEM 'file:///etc/passwd'>%p;]>",
          "<!DOCTYPE a [<!ATTLIST a b CDATA 'given'>]>", "<!DOCTYPE a [<!ENTITY"}) {
        EXPECT_EQ(Refusal("<?xml version='1.0'?>\n" + type + "<a/>"), reason) << type;
        EXPECT_FALSE(IsReadableXml(type + "<a/>")) << type;
    }
}

TEST(XmlParser, RefusesWhatIsNotWellFormedAndSaysInWhichLine) {
    EXPECT_EQ(Refusal(""), "it is empty");
    EXPECT_EQ(Refusal("text"), "line 1: it is not well-formed");
    EXPECT_EQ(Refusal("<a>\n<b>\n</a>"), "line 3: it is not well-formed");
    for (const char* text : {"<a/><b/>", "<a b='1' b='2'/>", "<a b='&e;'/>", "<a>&e;</a>",
                             "<a>\xFF</a>", "<a b=1/>", "<a>", "\xFF\xFE<\0a\0/\0>\0"}) {
        EXPECT_FALSE(IsReadableXml(text)) << text;
    }
}

TEST(XmlParser, RefusesADocumentThatIsTooLong) {
    const std::string ends = "<a></a>";
    const std::string filling(output::kMaxXmlSize - ends.size(), ' ');
    EXPECT_EQ(Refusal("<a>" + filling + "</a>"), "read");
    EXPECT_EQ(Refusal("<a>" + filling + " </a>"), "it has more than 65536 bytes");
}

TEST(XmlParser, RefusesElementsThatLieTooDeep) {
    const auto nested = [](std::size_t depth) {
        return Repeated("<a>", depth) + Repeated("</a>", depth);
    };
    EXPECT_EQ(Refusal(nested(output::kMaxXmlDepth)), "read");
    EXPECT_EQ(Refusal("\n" + nested(output::kMaxXmlDepth + 1)),
              "line 2: it has more than 16 elements in one another");
    EXPECT_EQ(Refusal(Repeated("<a>", 20'000)),
              "line 1: it has more than 16 elements in one another");
}

TEST(XmlParser, RefusesTooManyElements) {
    const auto filled = [](std::size_t count) {
        return "<a>" + Repeated("<b/>", count - 1) + "</a>";
    };
    EXPECT_EQ(Refusal(filled(output::kMaxXmlElements)), "read");
    EXPECT_EQ(Refusal(filled(output::kMaxXmlElements + 1)),
              "line 1: it has more than 4096 elements");
}

TEST(XmlParser, RefusesTooManyAttributes) {
    const auto element = [](const std::string& attributes) { return "<a" + attributes + "/>"; };
    const std::string reason = "line 1: it has more than 64 attributes in one element";
    EXPECT_EQ(Refusal(element(Attributes(output::kMaxXmlAttributes))), "read");
    EXPECT_EQ(Refusal(element(Attributes(output::kMaxXmlAttributes + 1))), reason);
    EXPECT_EQ(Refusal(element(Attributes(output::kMaxXmlAttributes) + " xmlns:x='x'")), reason);
}

}  // namespace

}  // namespace kelvane::output_test
