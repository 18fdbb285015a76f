// The characters of a text file: UTF-8, with or without a mark in front, or else GB18030. What is
// neither is refused as a whole: a text that is read in the wrong letters is a wrong text.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "adapters/tables/byte_source.h"

namespace kelvane::tables {

enum class TextEncoding { Detect, Utf8, Gb18030 };

// The encoding of that name ("UTF-8", "GB18030", "GBK", "GB2312"), whatever its letter case.
std::optional<TextEncoding> FindEncoding(std::string_view name);

// Looks through all of `source`: Utf8 when all of it is, else Gb18030.
TextEncoding DetectEncoding(ByteSource& source);

class TextDecoder {
public:
    // `encoding` is not Detect. `source` outlives the decoder. Throws Refusal, as Next() does.
    TextDecoder(ByteSource& source, TextEncoding encoding);

    // Replaces `text` by the next piece, in UTF-8 and without the mark; false at the end.
    bool Next(std::string& text);

private:
    void Decode(std::string& text);
    [[noreturn]] void RefuseAt(std::size_t place) const;

    ByteSource& mSource;
    TextEncoding mEncoding;
    std::uint64_t mOffset = 0;
    std::string mBytes;  // read and not decoded yet
    bool mAtEnd = false;
    bool mAtBegin = true;
    std::size_t mLine = 1;
};

}  // namespace kelvane::tables
