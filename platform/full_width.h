// Letters, digits and signs as Chinese input methods write them, as wide as an ideograph, and their
// plain forms.
#pragma once

namespace kelvane::platform {

constexpr char32_t PlainForm(char32_t character) {
    constexpr char32_t kWideFirst = 0xFF01;  // "!" to "~", one after the other
    constexpr char32_t kWideLast = 0xFF5E;
    constexpr char32_t kWideBlank = 0x3000;
    if (character >= kWideFirst && character <= kWideLast) return character - kWideFirst + U'!';
    return character == kWideBlank ? U' ' : character;
}

}  // namespace kelvane::platform
