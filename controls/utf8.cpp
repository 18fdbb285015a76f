#include "controls/utf8.h"

namespace kelvane::controls {

namespace {

bool IsContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

char Byte(unsigned value) {
    return static_cast<char>(static_cast<unsigned char>(value));
}

}  // namespace

void AppendUtf8(std::string& text, char32_t character) {
    const auto code = static_cast<unsigned>(character);
    if (code > 0x10FFFFU || (code >= 0xD800U && code <= 0xDFFFU)) return;
    if (code < 0x80U) {
        text += Byte(code);
        return;
    }
    if (code < 0x800U) {
        text += Byte(0xC0U | (code >> 6U));
    } else {
        if (code < 0x10000U) {
            text += Byte(0xE0U | (code >> 12U));
        } else {
            text += Byte(0xF0U | (code >> 18U));
            text += Byte(0x80U | ((code >> 12U) & 0x3FU));
        }
        text += Byte(0x80U | ((code >> 6U) & 0x3FU));
    }
    text += Byte(0x80U | (code & 0x3FU));
}

std::size_t CountUtf8(std::string_view text) {
    std::size_t count = 0;
    for (const char byte : text) count += IsContinuation(byte) ? 0 : 1;
    return count;
}

std::string_view FirstUtf8(std::string_view text, std::size_t count) {
    std::size_t position = 0;
    while (position < text.size()) {
        if (!IsContinuation(text[position])) {
            if (count == 0) break;
            --count;
        }
        ++position;
    }
    return text.substr(0, position);
}

void DropLastUtf8(std::string& text) {
    while (!text.empty()) {
        const bool continuation = IsContinuation(text.back());
        text.pop_back();
        if (!continuation) break;
    }
}

}  // namespace kelvane::controls
