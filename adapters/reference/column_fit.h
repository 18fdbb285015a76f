// How wide a list's columns are, so that its texts can be read whole.
#pragma once

#include <string>
#include <vector>

#include "adapters/reference/pick_rows.h"

namespace kelvane::reference {

// `widths` in twips, one a column of `rows`, each wide enough for its title and its texts as far as
// `room` twips for all of them allow; none becomes narrower. A text's width is estimated from its
// letters: there may be no screen to measure it on.
std::vector<int> FitColumns(const PickRows& rows, const std::vector<std::string>& titles,
                            std::vector<int> widths, int room);

}  // namespace kelvane::reference
