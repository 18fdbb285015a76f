#include "adapters/output/formats/xml_text_document.h"

#include "adapters/output/files/safe_file.h"
#include "adapters/output/formats/xml_parser.h"
#include "platform/native_path.h"

namespace kelvane::output {

bool XmlTextDocument::LoadXml(std::string_view text) {
    const bool parsed = IsReadableXml(text);
    mText = parsed ? text : std::string_view();
    return parsed;
}

void XmlTextDocument::Save(std::string_view path) {
    SafeFile file(platform::NativePath(path), mDisk);
    file.Write(mText);
    file.Finish();
}

}  // namespace kelvane::output
