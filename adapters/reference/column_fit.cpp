#include "adapters/reference/column_fit.h"

#include <algorithm>
#include <numeric>

#include "controls/text_width.h"

namespace kelvane::reference {

std::vector<int> FitColumns(const PickRows& rows, const std::vector<std::string>& titles,
                            std::vector<int> widths, int room) {
    int rest = room - std::accumulate(widths.begin(), widths.end(), 0);
    for (int column = 0; column < rows.Columns() && rest > 0; ++column) {
        const auto index = static_cast<std::size_t>(column);
        int wanted = controls::EstimateTextWidth(titles[index]);
        for (std::size_t row = 0; row < rows.Count(); ++row) {
            wanted = std::max(wanted, controls::EstimateTextWidth(rows.Cell(row, column)));
        }
        const int more = std::clamp(wanted - widths[index], 0, rest);
        widths[index] += more;
        rest -= more;
    }
    return widths;
}

}  // namespace kelvane::reference
