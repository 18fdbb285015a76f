// Reads XML documents with the system's library.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelvane::output {

// An element with its attributes and child elements; texts between tags are left out.
struct XmlElement {
    std::string name;
    std::map<std::string, std::string> attributes;
    std::vector<XmlElement> children;

    // An attribute's value; null when it is not there.
    const std::string* Attribute(const std::string& name) const;
};

// Whether `text` (UTF-8) is a well-formed document.
bool IsWellFormedXml(std::string_view text);

// The document's root element; nothing when the text is not well-formed.
std::optional<XmlElement> ParseXml(std::string_view text);

}  // namespace kelvane::output
