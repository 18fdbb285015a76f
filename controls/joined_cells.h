// A row's cell texts as the grid keeps them: joined by a tab.
#pragma once

#include <string_view>
#include <utility>

namespace kelvane::controls {

// The range [begin, end) of cell `col` in a row's joined texts; cells past the last are empty.
inline std::pair<std::size_t, std::size_t> FindCell(std::string_view cells, int col) {
    std::size_t begin = 0;
    for (int passed = 0; passed < col; ++passed) {
        const std::size_t tab = cells.find('\t', begin);
        if (tab == std::string_view::npos) return {cells.size(), cells.size()};
        begin = tab + 1;
    }
    const std::size_t tab = cells.find('\t', begin);
    return {begin, tab == std::string_view::npos ? cells.size() : tab};
}

inline std::string_view CellIn(std::string_view cells, int col) {
    const auto [begin, end] = FindCell(cells, col);
    return cells.substr(begin, end - begin);
}

}  // namespace kelvane::controls
