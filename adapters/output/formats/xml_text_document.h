// XmlTextDocument: an XML document that is written exactly as its text was given.
#pragma once

#include <string>

#include "adapters/output/files/disk.h"
#include "platform/xml_document.h"

namespace kelvane::output {

class XmlTextDocument : public platform::XmlDocument {
public:
    // `disk` outlives the document.
    explicit XmlTextDocument(Disk& disk = SystemDisk()) : mDisk(disk) {}

    bool LoadXml(std::string_view text) override;
    // A backslash in `path` separates folders. Throws FileFailure, a std::runtime_error.
    void Save(std::string_view path) override;

private:
    Disk& mDisk;
    std::string mText;
};

}  // namespace kelvane::output
