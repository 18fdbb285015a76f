// An XML document that can be made from text and written to a file.
#pragma once

#include <string_view>

namespace kelvane::platform {

class XmlDocument {
public:
    virtual ~XmlDocument() = default;
    // Returns false, and leaves an empty document, when `text` (UTF-8) does not parse.
    virtual bool LoadXml(std::string_view text) = 0;
    // Writes the document, empty or not, over an existing file. Throws std::runtime_error that
    // names the file when it cannot be written.
    virtual void Save(std::string_view path) = 0;
};

}  // namespace kelvane::platform
