#include "adapters/tables/text_decoder.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "adapters/tables/gb18030.h"
#include "adapters/tables/refusal.h"
#include "platform/ascii.h"
#include "platform/utf8.h"

namespace kelvane::tables {

namespace {

constexpr std::size_t kBlock = 64U << 10U;
constexpr std::size_t kLongestCharacter = 4;
constexpr std::string_view kMark = "\uFEFF";

struct EncodingName {
    std::string_view name;
    TextEncoding encoding;
};

// The older names stand for parts of GB18030.
constexpr std::array kNames{
    EncodingName{"UTF-8", TextEncoding::Utf8},      EncodingName{"UTF8", TextEncoding::Utf8},
    EncodingName{"GB18030", TextEncoding::Gb18030}, EncodingName{"GBK", TextEncoding::Gb18030},
    EncodingName{"GB2312", TextEncoding::Gb18030},
};

// How much of `text` is whole characters: all of it, but for one at its end that may go on.
std::size_t ValidUtf8(std::string_view text) {
    const std::string_view all = text;
    while (!text.empty()) {
        const auto* plain = std::find_if(
            text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
        text.remove_prefix(static_cast<std::size_t>(plain - text.begin()));
        if (text.empty()) break;
        const platform::Utf8Character character = platform::FirstWideCharacter(text);
        if (!character.valid) break;
        text.remove_prefix(character.length);
    }
    return all.size() - text.size();
}

std::size_t ValidGb18030(std::string_view text) {
    const std::size_t size = text.size();
    while (!text.empty()) {
        const std::size_t length = Gb18030Length(text);
        if (length == 0 || length > text.size()) break;
        text.remove_prefix(length);
    }
    return size - text.size();
}

}  // namespace

TextEncoding DetectEncoding(ByteSource& source) {
    std::string bytes;
    for (std::uint64_t offset = 0; offset < source.Size();) {
        const std::size_t carried = bytes.size();
        bytes.resize(carried + kBlock);
        const std::size_t count = source.Read(offset, bytes.data() + carried, kBlock);
        bytes.resize(carried + count);
        offset += count;
        const std::size_t valid = ValidUtf8(bytes);
        if (bytes.size() - valid >= kLongestCharacter) return TextEncoding::Gb18030;
        bytes.erase(0, valid);
    }
    return bytes.empty() ? TextEncoding::Utf8 : TextEncoding::Gb18030;
}

std::optional<TextEncoding> FindEncoding(std::string_view name) {
    for (const EncodingName& known : kNames) {
        if (platform::EqualIgnoringCase(known.name, name)) return known.encoding;
    }
    return std::nullopt;
}

TextDecoder::TextDecoder(ByteSource& source, TextEncoding encoding)
    : mSource(source), mEncoding(encoding) {
    const std::string begin = FirstBytes(source, 2);
    if (begin == "\xFF\xFE" || begin == "\xFE\xFF") {
        throw Refusal("文字编码是 UTF-16，请另存为 UTF-8");
    }
}

bool TextDecoder::Next(std::string& text) {
    text.clear();
    while (text.empty() && !mAtEnd) {
        const std::size_t carried = mBytes.size();
        mBytes.resize(carried + kBlock);
        const std::size_t count = mSource.Read(mOffset, mBytes.data() + carried, kBlock);
        mBytes.resize(carried + count);
        mOffset += count;
        mAtEnd = count == 0;
        Decode(text);
        mLine += static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
        if (mAtBegin && text.starts_with(kMark)) text.erase(0, kMark.size());
        mAtBegin = false;
    }
    return !text.empty();
}

void TextDecoder::Decode(std::string& text) {
    const bool isUtf8 = mEncoding == TextEncoding::Utf8;
    const std::size_t valid = isUtf8 ? ValidUtf8(mBytes) : ValidGb18030(mBytes);
    const std::size_t left = mBytes.size() - valid;
    if (left >= kLongestCharacter || (mAtEnd && left > 0)) RefuseAt(valid);
    const std::string_view whole = std::string_view(mBytes).substr(0, valid);
    if (whole.find('\0') != std::string_view::npos) throw Refusal("不是文本文件");
    if (isUtf8) {
        text = whole;
    } else if (!AppendGb18030(whole, text)) {
        RefuseAt(0);
    }
    mBytes.erase(0, valid);
}

void TextDecoder::RefuseAt(std::size_t place) const {
    const auto end = mBytes.begin() + static_cast<std::ptrdiff_t>(place);
    const auto line = mLine + static_cast<std::size_t>(std::count(mBytes.begin(), end, '\n'));
    throw Refusal(
        "从第 " + std::to_string(line) + " 行起，文字编码" +
        (mEncoding == TextEncoding::Utf8 ? "不是 UTF-8" : "既不是 UTF-8，也不是 GB18030"));
}

}  // namespace kelvane::tables
