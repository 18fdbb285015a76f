#include "adapters/output/formats/xml_text.h"

#include "platform/utf8.h"

namespace kelvane::output {

namespace {

bool IsXmlCharacter(const platform::Utf8Character& character) {
    const char32_t value = character.value;
    if (!character.valid || value == 0xFFFE || value == 0xFFFF) return false;
    return value >= U' ' || value == U'\t' || value == U'\n' || value == U'\r';
}

std::string_view EntityOf(char32_t character) {
    switch (character) {
        case U'&':
            return "&amp;";
        case U'<':
            return "&lt;";
        case U'>':
            return "&gt;";
        case U'"':
            return "&quot;";
        case U'\t':
            return "&#9;";
        case U'\n':
            return "&#10;";
        case U'\r':
            return "&#13;";
        default:
            return {};
    }
}

}  // namespace

std::string EscapeXml(std::string_view text) {
    std::string escaped;
    escaped.reserve(text.size());
    while (!text.empty()) {
        const platform::Utf8Character next = platform::FirstCharacter(text);
        const std::string_view entity = EntityOf(next.value);
        if (!IsXmlCharacter(next)) {
            escaped += platform::kReplacementText;
        } else {
            escaped += entity.empty() ? text.substr(0, next.length) : entity;
        }
        text.remove_prefix(next.length);
    }
    return escaped;
}

std::string XmlAttribute(std::string_view name, std::string_view value) {
    return " " + std::string(name) + "=\"" + EscapeXml(value) + "\"";
}

}  // namespace kelvane::output
