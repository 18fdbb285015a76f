// Reads XML documents with the system's library: the one reader for whatever XML comes from
// outside, but for workbooks, whose XML is too long to be kept (adapters/tables/xml_stream.h). What
// it takes is small and plain, so that no file, whoever wrote it, costs time or room.
#pragma once

#include <cstddef>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace kelvane::output {

// What a document has at most.
inline constexpr std::size_t kMaxXmlSize = 65'536;  // bytes
inline constexpr std::size_t kMaxXmlDepth = 16;     // elements in one another
inline constexpr std::size_t kMaxXmlElements = 4'096;
inline constexpr std::size_t kMaxXmlAttributes = 64;  // of one element

// An element with its attributes and child elements; texts between tags are left out.
struct XmlElement {
    std::string name;
    std::map<std::string, std::string> attributes;
    std::vector<XmlElement> children;

    // An attribute's value; null when it is not there.
    const std::string* Attribute(const std::string& name) const;
};

// A text is no document that is read; says why, and in which line.
class XmlRefused : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Whether `text` (UTF-8) is a document that ParseXml() reads.
bool IsReadableXml(std::string_view text);

// The root element of `text` (UTF-8). Throws XmlRefused when it is not well-formed, is beyond the
// limits above or has a document type, which is where entities and other files come from; reading
// ends there, before anything is made of it.
XmlElement ParseXml(std::string_view text);

}  // namespace kelvane::output
