#include "adapters/output/formats/xml_parser.h"

#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>

#include <memory>
#include <utility>

namespace kelvane::output {

namespace {

struct ReaderRelease {
    void operator()(xmlParserCtxt* reader) const { xmlFreeParserCtxt(reader); }
};
using Reader = std::unique_ptr<xmlParserCtxt, ReaderRelease>;

std::string TextOf(const xmlChar* text) {
    return reinterpret_cast<const char*>(text);
}

std::string AtLine(xmlParserCtxt& reader, const std::string& reason) {
    return "line " + std::to_string(xmlSAX2GetLineNumber(&reader)) + ": " + reason;
}

std::string MoreThan(std::size_t most, const char* things) {
    return "it has more than " + std::to_string(most) + " " + things;
}

// Makes elements of what the library finds, and stops it at the first thing that is refused.
class Builder {
public:
    explicit Builder(xmlParserCtxt& reader) : mReader(reader) {}

    void Begin(const xmlChar* name, std::size_t declarations, std::size_t count,
               const xmlChar** attributes) {
        if (++mElements > kMaxXmlElements) return Refuse(MoreThan(kMaxXmlElements, "elements"));
        if (mOpen.size() == kMaxXmlDepth) {
            return Refuse(MoreThan(kMaxXmlDepth, "elements in one another"));
        }
        if (declarations + count > kMaxXmlAttributes) {
            return Refuse(MoreThan(kMaxXmlAttributes, "attributes in one element"));
        }
        XmlElement& element = mOpen.emplace_back();
        element.name = TextOf(name);
        // For each: name, prefix, namespace, and both ends of the value.
        constexpr std::size_t kParts = 5;
        for (; count > 0; --count, attributes += kParts) {
            const auto* begin = reinterpret_cast<const char*>(attributes[3]);
            const auto* end = reinterpret_cast<const char*>(attributes[4]);
            element.attributes[TextOf(attributes[0])].assign(begin, end);
        }
    }

    void End() {
        XmlElement element = std::move(mOpen.back());
        mOpen.pop_back();
        (mOpen.empty() ? mRoot : mOpen.back().children.emplace_back()) = std::move(element);
    }

    void Refuse(const std::string& reason) {
        mRefusal = AtLine(mReader, reason);
        xmlStopParser(&mReader);
    }

    const std::string& Refusal() const { return mRefusal; }
    XmlElement& Root() { return mRoot; }

private:
    xmlParserCtxt& mReader;
    std::size_t mElements = 0;
    std::vector<XmlElement> mOpen;
    XmlElement mRoot;
    std::string mRefusal;
};

// No exception passes through the library: what is within the limits has room.
void Begin(void* builder, const xmlChar* name, const xmlChar* /*prefix*/, const xmlChar* /*uri*/,
           int declarations, const xmlChar** /*namespaces*/, int count, int /*defaulted*/,
           const xmlChar** attributes) noexcept {
    static_cast<Builder*>(builder)->Begin(name, static_cast<std::size_t>(declarations),
                                          static_cast<std::size_t>(count), attributes);
}

void End(void* builder, const xmlChar* /*name*/, const xmlChar* /*prefix*/,
         const xmlChar* /*uri*/) noexcept {
    static_cast<Builder*>(builder)->End();
}

void BeginDocumentType(void* builder, const xmlChar* /*name*/, const xmlChar* /*id*/,
                       const xmlChar* /*place*/) noexcept {
    static_cast<Builder*>(builder)->Refuse("a document type is not allowed");
}

}  // namespace

const std::string* XmlElement::Attribute(const std::string& attribute) const {
    const auto found = attributes.find(attribute);
    return found == attributes.end() ? nullptr : &found->second;
}

bool IsReadableXml(std::string_view text) {
    try {
        ParseXml(text);
        return true;
    } catch (const XmlRefused&) {
        return false;
    }
}

XmlElement ParseXml(std::string_view text) {
    if (text.empty()) throw XmlRefused("it is empty");
    if (text.size() > kMaxXmlSize) throw XmlRefused(MoreThan(kMaxXmlSize, "bytes"));
    const Reader reader(xmlCreateMemoryParserCtxt(text.data(), static_cast<int>(text.size())));
    if (!reader) throw std::bad_alloc();
    // Nothing is fetched, and what is wrong is not written to the console. Without a document type
    // there are no entities but the five of the language, whose characters are wanted.
    xmlCtxtUseOptions(reader.get(),
                      XML_PARSE_NONET | XML_PARSE_NOENT | XML_PARSE_NOERROR | XML_PARSE_NOWARNING);
    xmlSwitchEncoding(reader.get(), XML_CHAR_ENCODING_UTF8);
    Builder builder(*reader);
    *reader->sax = {};
    reader->sax->initialized = XML_SAX2_MAGIC;
    reader->sax->internalSubset = BeginDocumentType;
    reader->sax->startElementNs = Begin;
    reader->sax->endElementNs = End;
    reader->userData = &builder;
    xmlParseDocument(reader.get());
    if (!builder.Refusal().empty()) throw XmlRefused(builder.Refusal());
    if (reader->wellFormed == 0) throw XmlRefused(AtLine(*reader, "it is not well-formed"));
    return std::move(builder.Root());
}

}  // namespace kelvane::output
