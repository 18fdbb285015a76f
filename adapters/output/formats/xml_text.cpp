#include "adapters/output/formats/xml_text.h"

#include "adapters/output/formats/utf8_reader.h"

namespace kelvane::output {

namespace {

bool IsXmlCharacter(const Utf8Character& character) {
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
    static constexpr std::string_view kReplacementText = "\uFFFD";
    std::string escaped;
    escaped.reserve(text.size());
    while (!text.empty()) {
        const Utf8Character next = FirstCharacter(text);
        const std::string_view entity = EntityOf(next.value);
        if (!IsXmlCharacter(next)) {
            escaped += kReplacementText;
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
