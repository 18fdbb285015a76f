#include "adapters/odbc/wide_text.h"

namespace kelvane::odbc {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

constexpr bool IsLead(char32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}
constexpr bool IsTrail(char32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

// The code point at `at`, which moves behind it; behind one byte when that begins none.
char32_t TakeCodePoint(std::string_view text, std::size_t& at) {
    const auto byte = [&](std::size_t place) {
        return place < text.size() ? static_cast<unsigned char>(text[place]) : 0U;
    };
    const unsigned first = byte(at++);
    if (first < 0x80) return first;
    const std::size_t more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : first >= 0xC2 ? 1 : 0;
    if (more == 0 || first > 0xF4) return kReplacement;
    char32_t point = first & (0x3FU >> more);
    for (std::size_t i = 0; i < more; ++i) {
        if ((byte(at + i) & 0xC0U) != 0x80) return kReplacement;
        point = (point << 6) | (byte(at + i) & 0x3FU);
    }
    constexpr char32_t kLeast[] = {0, 0x80, 0x800, 0x10000};
    if (point < kLeast[more] || point > 0x10FFFF || (point >= 0xD800 && point < 0xE000)) {
        return kReplacement;
    }
    at += more;
    return point;
}

void AppendCodePoint(std::string& text, char32_t point) {
    const auto tail = [&](unsigned shift) {
        text += static_cast<char>(0x80 | ((point >> shift) & 0x3F));
    };
    if (point < 0x80) {
        text += static_cast<char>(point);
    } else if (point < 0x800) {
        text += static_cast<char>(0xC0 | (point >> 6));
        tail(0);
    } else if (point < 0x10000) {
        text += static_cast<char>(0xE0 | (point >> 12));
        tail(6);
        tail(0);
    } else {
        text += static_cast<char>(0xF0 | (point >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
}

}  // namespace

WideText ToWide(std::string_view text) {
    WideText wide;
    wide.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const char32_t point = TakeCodePoint(text, at);
        if (point < 0x10000) {
            wide += static_cast<SQLWCHAR>(point);
        } else {
            wide += static_cast<SQLWCHAR>(0xD800 + ((point - 0x10000) >> 10));
            wide += static_cast<SQLWCHAR>(0xDC00 + ((point - 0x10000) & 0x3FF));
        }
    }
    return wide;
}

void FromWide(const SQLWCHAR* text, std::size_t length, std::string& result) {
    result.clear();
    for (std::size_t i = 0; i < length; ++i) {
        char32_t point = text[i];
        if (IsLead(point) && i + 1 < length && IsTrail(text[i + 1])) {
            point = 0x10000 + ((point - 0xD800) << 10) + (char32_t{text[++i]} - 0xDC00);
        } else if (IsLead(point) || IsTrail(point)) {
            point = kReplacement;
        }
        AppendCodePoint(result, point);
    }
}

}  // namespace kelvane::odbc
