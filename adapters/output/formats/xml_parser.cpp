#include "adapters/output/formats/xml_parser.h"

#include <libxml/parser.h>
#include <libxml/tree.h>

#include <limits>
#include <memory>

namespace kelvane::output {

namespace {

struct DocumentRelease {
    void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
};
struct TextRelease {
    void operator()(xmlChar* text) const { xmlFree(text); }
};
using DocumentPointer = std::unique_ptr<xmlDoc, DocumentRelease>;

DocumentPointer Read(std::string_view text) {
    // Nothing is fetched or expanded, and what is wrong is not written to the console.
    constexpr int kOptions = XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING;
    if (text.empty() || text.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
        return nullptr;
    }
    return DocumentPointer(
        xmlReadMemory(text.data(), static_cast<int>(text.size()), nullptr, "UTF-8", kOptions));
}

std::string TextOf(const xmlChar* text) {
    return text == nullptr ? std::string() : reinterpret_cast<const char*>(text);
}

XmlElement ElementOf(const xmlNode& node) {
    XmlElement element;
    element.name = TextOf(node.name);
    for (const xmlAttr* attribute = node.properties; attribute != nullptr;
         attribute = attribute->next) {
        const std::unique_ptr<xmlChar, TextRelease> value(
            xmlNodeListGetString(node.doc, attribute->children, 1));
        element.attributes[TextOf(attribute->name)] = TextOf(value.get());
    }
    for (const xmlNode* child = node.children; child != nullptr; child = child->next) {
        if (child->type == XML_ELEMENT_NODE) element.children.push_back(ElementOf(*child));
    }
    return element;
}

}  // namespace

const std::string* XmlElement::Attribute(const std::string& attribute) const {
    const auto found = attributes.find(attribute);
    return found == attributes.end() ? nullptr : &found->second;
}

bool IsWellFormedXml(std::string_view text) {
    return Read(text) != nullptr;
}

std::optional<XmlElement> ParseXml(std::string_view text) {
    const DocumentPointer document = Read(text);
    const xmlNode* root = document ? xmlDocGetRootElement(document.get()) : nullptr;
    if (root == nullptr) return std::nullopt;
    return ElementOf(*root);
}

}  // namespace kelvane::output
