#include "adapters/com/msxml_document.h"

#include <optional>
#include <string>

#include "adapters/com/automation_value.h"

namespace kelvane::com {

namespace {

// The newest that is on every system comes first.
constexpr const char* kClasses[] = {"Msxml2.DOMDocument.6.0", "Msxml2.DOMDocument",
                                    "MSXML.DOMDocument"};

DispatchObject NewDocument() {
    std::optional<DispatchError> refused;
    for (const char* name : kClasses) {
        try {
            return DispatchObject::Create(name);
        } catch (const DispatchError& error) {
            refused = error;
        }
    }
    throw *refused;
}

}  // namespace

MsxmlDocument::MsxmlDocument() : mDocument(NewDocument()) {}

bool MsxmlDocument::LoadXml(std::string_view text) {
    return ToValue(mDocument.Call("loadXML", {Variant::OfText(text)}).Get()).ToInteger() != 0;
}

void MsxmlDocument::Save(std::string_view path) {
    try {
        mDocument.Call("save", {Variant::OfText(path)});
    } catch (const DispatchError& error) {
        throw std::runtime_error("不能写入 " + std::string(path) + "：" + error.Reason());
    }
}

}  // namespace kelvane::com
