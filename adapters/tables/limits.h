// What a table has at most. A file beyond it is refused, whoever made it, before it costs more than
// a moment and some memory; a hundred thousand rows of ten columns keep well within.
#pragma once

#include <cstddef>
#include <cstdint>

namespace kelvane::tables {

// What a spreadsheet program itself has room for.
inline constexpr int kMaxRow = 1'048'576;
inline constexpr int kMaxColumn = 16'384;

inline constexpr std::uint64_t kMaxBytes = 96U << 20U;      // of a text, or inflated of a workbook
inline constexpr std::size_t kMaxCellBytes = 128U << 10U;   // 32,767 characters are fewer
inline constexpr std::size_t kMaxRowBytes = 4U << 20U;      // of a row's texts
inline constexpr std::size_t kMaxSharedBytes = 64U << 20U;  // of a workbook's shared texts
inline constexpr std::size_t kMaxSharedTexts = 4'000'000;

inline constexpr std::size_t kMaxParts = 10'000;
inline constexpr std::size_t kMaxSheets = 1'024;
inline constexpr std::size_t kMaxProperties = 1'000;
inline constexpr std::size_t kMaxFormats = 65'536;
inline constexpr std::size_t kMaxMergedRanges = 100'000;

// Of a workbook's XML.
inline constexpr std::size_t kMaxXmlEvents = 8'000'000;  // tags, texts between them, comments
inline constexpr std::size_t kXmlEventCost = 12;  // as many bytes, of what a workbook may cost
inline constexpr std::size_t kMaxXmlDepth = 64;
inline constexpr std::size_t kMaxXmlAttributes = 64;  // of one element; as many open namespaces
inline constexpr std::size_t kMaxXmlTag = 160U
                                          << 10U;  // bytes from one tag's beginning to the next

}  // namespace kelvane::tables
