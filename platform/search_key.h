// What a row of a list is found by: its texts without regard to letter case and width, and the
// pinyin initials of its Chinese texts.
#pragma once

#include <string>
#include <string_view>

namespace kelvane::platform {

// Ends every part of a search key; no folded text contains it.
inline constexpr char kKeyEnd = '\x1f';

// `text` as it is compared: small letters, the wide forms of an input method as plain ones, control
// characters as blanks. Bytes that are no UTF-8 stay as they are.
std::string FoldText(std::string_view text);
// The same at the end of `out`.
void AppendFolded(std::string& out, std::string_view text);

// The text that orders a cell among others: Chinese characters by their initials first.
std::string SortKey(std::string_view cell);

// Appends the search key of a cell to `key`: the folded text and, when it has Chinese characters,
// their initials among its letters and digits, once for each way to read them (sixteen at most),
// each part followed by kKeyEnd.
void AppendSearchKey(std::string& key, std::string_view cell);

}  // namespace kelvane::platform
