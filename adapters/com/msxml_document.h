// An XML document as the system's own XML object holds it.
#pragma once

#include "adapters/com/dispatch_object.h"
#include "platform/xml_document.h"

namespace kelvane::com {

class MsxmlDocument : public platform::XmlDocument {
public:
    // Throws std::runtime_error when the system has no such object.
    MsxmlDocument();

    bool LoadXml(std::string_view text) override;
    void Save(std::string_view path) override;

private:
    DispatchObject mDocument;
};

}  // namespace kelvane::com
