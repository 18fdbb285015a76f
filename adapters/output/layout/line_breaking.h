// Breaks a text into lines that fit a width, as Chinese text is broken: between characters, but not
// inside a word or a number of Latin characters and not before closing punctuation.
#pragma once

#include <string_view>
#include <vector>

#include "adapters/output/layout/text_measurer.h"

namespace kelvane::output {

// The lines of `text`, at least one, in the order of the text; blanks at their ends are left out.
// `width` is in thousandths of a millimetre. A word that is wider is broken anywhere.
std::vector<std::string_view> BreakLines(std::string_view text, const Letters& letters, int width,
                                         TextMeasurer& measurer);

}  // namespace kelvane::output
