#include "adapters/output/formats/utf8_reader.h"

#include <array>

namespace kelvane::output {

namespace {

// How a character of so many bytes begins, and the smallest value that needs them.
struct Form {
    unsigned mask;
    unsigned lead;
    std::size_t length;
    char32_t least;
};

constexpr std::array kForms{
    Form{0x80, 0x00, 1, 0},
    Form{0xE0, 0xC0, 2, 0x80},
    Form{0xF0, 0xE0, 3, 0x800},
    Form{0xF8, 0xF0, 4, 0x10000},
};

constexpr char32_t kLast = 0x10FFFF;

bool IsSurrogate(char32_t value) {
    return value >= 0xD800 && value <= 0xDFFF;
}

}  // namespace

Utf8Character FirstCharacter(std::string_view text) {
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    for (const Form& form : kForms) {
        if ((byte(0) & form.mask) != form.lead) continue;
        if (text.size() < form.length) break;
        char32_t value = byte(0) & ~form.mask;
        bool whole = true;
        for (std::size_t at = 1; at < form.length; ++at) {
            whole = whole && (byte(at) & 0xC0U) == 0x80U;
            value = (value << 6U) | (byte(at) & 0x3FU);
        }
        if (!whole || value < form.least || value > kLast || IsSurrogate(value)) break;
        return {value, form.length, true};
    }
    return {kReplacement, 1, false};
}

std::string ReadableUtf8(std::string_view text) {
    static constexpr std::string_view kReplacementText = "\uFFFD";
    std::string readable;
    readable.reserve(text.size());
    while (!text.empty()) {
        const Utf8Character next = FirstCharacter(text);
        const bool shown = next.valid && next.value >= U' ' && next.value != 0x7F;
        readable += shown ? text.substr(0, next.length) : kReplacementText;
        text.remove_prefix(next.length);
    }
    return readable;
}

}  // namespace kelvane::output
