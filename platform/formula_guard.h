// A spreadsheet that opens a csv file takes some texts for formulas and runs them. An apostrophe in
// front keeps them texts; where such a file is read, it is taken away again.
#pragma once

#include <algorithm>
#include <string_view>

namespace kelvane::platform {

// Whether `text` begins as a formula does, the wide signs included, which count where a spreadsheet
// is set to an East Asian language; apostrophes may stand in front.
inline bool BeginsAsFormula(std::string_view text) {
    constexpr std::string_view kStarts[] = {"=",  "+",  "-",  "@",  "\t", "\r",
                                            "\n", "＝", "＋", "－", "＠"};
    text.remove_prefix(std::min(text.find_first_not_of('\''), text.size()));
    return std::ranges::any_of(kStarts,
                               [&](std::string_view start) { return text.starts_with(start); });
}

// Whether `text` is one that was guarded.
inline bool IsGuarded(std::string_view text) {
    return text.starts_with('\'') && BeginsAsFormula(text);
}

}  // namespace kelvane::platform
