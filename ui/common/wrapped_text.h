// A long text on several labels, which show one line each.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kelvane::ui {

// `text` broken into at most `lines` lines of the estimated width `twips`, at least one character
// on each; the last line takes all that is left. Lines end behind a blank or a punctuation mark
// where there is one in their last third.
std::vector<std::string> WrapText(std::string_view text, int twips, std::size_t lines);

}  // namespace kelvane::ui
