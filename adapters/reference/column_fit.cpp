#include "adapters/reference/column_fit.h"

#include <algorithm>
#include <numeric>
#include <string_view>

#include "platform/utf8.h"

namespace kelvane::reference {

namespace {

// In the windows' usual font, in twips.
constexpr int kLetter = 115;
constexpr int kIdeograph = 210;
constexpr int kPadding = 240;
constexpr char32_t kFirstWide = 0x1100;

int WidthOf(std::string_view text) {
    int width = kPadding;
    while (!text.empty()) {
        width += platform::TakeCharacter(text).value < kFirstWide ? kLetter : kIdeograph;
    }
    return width;
}

}  // namespace

std::vector<int> FitColumns(const PickRows& rows, const std::vector<std::string>& titles,
                            std::vector<int> widths, int room) {
    int rest = room - std::accumulate(widths.begin(), widths.end(), 0);
    for (int column = 0; column < rows.Columns() && rest > 0; ++column) {
        const auto index = static_cast<std::size_t>(column);
        int wanted = WidthOf(titles[index]);
        for (std::size_t row = 0; row < rows.Count(); ++row) {
            wanted = std::max(wanted, WidthOf(rows.Cell(row, column)));
        }
        const int more = std::clamp(wanted - widths[index], 0, rest);
        widths[index] += more;
        rest -= more;
    }
    return widths;
}

}  // namespace kelvane::reference
