// Reads a workbook's XML from its beginning to its end, without ever having more of it than a tag.
// A document type is refused, which is where entities and other files come from, and what would
// take long to read is (limits.h).
#pragma once

#include <cstddef>
#include <string_view>

#include "adapters/tables/zip_archive.h"

namespace kelvane::tables {

class XmlAttributes {
public:
    // As the library hands them over.
    XmlAttributes(const unsigned char** first, std::size_t count) : mFirst(first), mCount(count) {}

    // The value of the attribute that has no namespace, or one whose name ends in `space`; empty
    // when it is not there.
    std::string_view Find(std::string_view name, std::string_view space = {}) const;

private:
    const unsigned char** mFirst;
    std::size_t mCount;
};

// `text` without the blanks, tabs and line breaks at its ends.
std::string_view WithoutXmlBlanks(std::string_view text);
// "1" and "true".
bool IsTrue(std::string_view value);
// A number from 0 to `most`. Throws Refusal when `value` is none.
int NumberOf(std::string_view value, int most);

// Gets what is read. Elements of other namespaces than the root's are passed over with all that is
// in them, unless the handler knows the namespace.
class XmlHandler {
public:
    virtual ~XmlHandler() = default;

    virtual bool Knows(std::string_view /*space*/) { return false; }
    // An element within the root. False: it is passed over with all that is in it.
    virtual bool Begin(std::string_view name, const XmlAttributes& attributes) = 0;
    // The end of an element that was gone into.
    virtual void End(std::string_view /*name*/) {}
    // Text right within the element, perhaps not all of it at once.
    virtual void Text(std::string_view /*text*/) {}
};

// Thrown by a handler that needs no more of it.
struct EnoughXml {};

// Reads the part `name`, whose root element is `root`. Throws Refusal and passes on what the
// handler throws.
void ReadXml(ZipArchive& archive, std::string_view name, std::string_view root,
             XmlHandler& handler);

}  // namespace kelvane::tables
