#include "platform/utf8.h"

#include <algorithm>
#include <array>

namespace kelvane::platform {

namespace {

// How a character of so many bytes begins, and the smallest value that needs them.
struct Form {
    unsigned mask;
    unsigned lead;
    unsigned length;
    char32_t least;
};

constexpr std::array kForms{
    Form{0xE0, 0xC0, 2, 0x80},
    Form{0xF0, 0xE0, 3, 0x800},
    Form{0xF8, 0xF0, 4, 0x10000},
};

unsigned ByteAt(std::string_view text, std::size_t at) {
    return static_cast<unsigned char>(text[at]);
}

char Byte(char32_t value) {
    return static_cast<char>(static_cast<unsigned char>(value));
}

bool IsContinuation(unsigned byte) {
    return (byte & 0xC0U) == 0x80U;
}

}  // namespace

Utf8Character FirstWideCharacter(std::string_view text) {
    constexpr Utf8Character kNone{kReplacement, 1, false};
    for (const Form& form : kForms) {
        if ((ByteAt(text, 0) & form.mask) != form.lead) continue;
        if (text.size() < form.length) return kNone;
        char32_t value = ByteAt(text, 0) & ~form.mask;
        for (std::size_t at = 1; at < form.length; ++at) {
            if (!IsContinuation(ByteAt(text, at))) return kNone;
            value = (value << 6U) | (ByteAt(text, at) & 0x3FU);
        }
        if (value < form.least || value > kMaxCharacter || IsSurrogate(value)) return kNone;
        return {value, form.length, true};
    }
    return kNone;
}

void AppendCharacter(std::string& text, char32_t character) {
    if (character > kMaxCharacter || IsSurrogate(character)) return;
    if (character < 0x80) {
        text += Byte(character);
        return;
    }
    const auto* form = kForms.begin();
    while (form + 1 != kForms.end() && character >= (form + 1)->least) ++form;
    unsigned shift = 6 * (form->length - 1);
    text += Byte(form->lead | (character >> shift));
    while (shift > 0) {
        shift -= 6;
        text += Byte(0x80U | ((character >> shift) & 0x3FU));
    }
}

std::size_t CountCharacters(std::string_view text) {
    std::size_t count = 0;
    for (; !text.empty(); ++count) TakeCharacter(text);
    return count;
}

std::size_t CodePageLength(std::string_view text) {
    std::size_t length = 0;
    while (!text.empty()) length += TakeCharacter(text).value < 0x80 ? 1 : 2;
    return length;
}

std::string_view FirstCharacters(std::string_view text, std::size_t count) {
    std::string_view rest = text;
    for (; count > 0 && !rest.empty(); --count) TakeCharacter(rest);
    return text.substr(0, text.size() - rest.size());
}

void DropLastCharacter(std::string& text) {
    if (text.empty()) return;
    constexpr std::size_t kMaxLength = 4;
    // The longest character that ends where the text does; a byte that ends none is taken alone.
    for (std::size_t length = std::min(kMaxLength, text.size()); length > 1; --length) {
        if (FirstCharacter(std::string_view(text).substr(text.size() - length)).length == length) {
            text.resize(text.size() - length);
            return;
        }
    }
    text.pop_back();
}

}  // namespace kelvane::platform
