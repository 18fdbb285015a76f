// Text inside an XML document, as an attribute's value or between tags.
#pragma once

#include <string>
#include <string_view>

namespace kelvane::output {

// `text` with markup escaped; characters that XML does not have become U+FFFD.
std::string EscapeXml(std::string_view text);

// ` name="value"`.
std::string XmlAttribute(std::string_view name, std::string_view value);

}  // namespace kelvane::output
