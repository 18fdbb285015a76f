// The width of a text where there is no screen to measure it on.
#pragma once

#include <string_view>

namespace kelvane::controls {

// The twips that a cell needs to show `text` (UTF-8) whole in the windows' usual font, estimated
// from its letters.
int EstimateTextWidth(std::string_view text);

}  // namespace kelvane::controls
