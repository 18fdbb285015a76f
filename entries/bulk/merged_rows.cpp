#include "entries/bulk/merged_rows.h"

#include <algorithm>
#include <map>

namespace kelvane::entries {

using platform::CellRange;

void FindMergedRows(const platform::TableReader& reader, const std::vector<CellRange>& merged,
                    BulkTable& table) {
    // The shape's columns by where they stand.
    std::map<int, int> columns;
    for (std::size_t column = 0; column < table.places.size(); ++column) {
        const int place = table.places[column].column;
        if (place > 0) columns[place] = static_cast<int>(column);
    }
    struct Reach {
        int firstRow;
        int lastRow;
        int column;
    };
    std::vector<Reach> reaches;
    for (const CellRange& range : merged) {
        const auto touched = columns.lower_bound(range.firstColumn);
        const bool alone = range.firstRow == range.lastRow && range.firstColumn == range.lastColumn;
        if (alone || touched == columns.end() || touched->first > range.lastColumn) continue;
        reaches.push_back({range.firstRow, range.lastRow, touched->second});
    }
    std::sort(reaches.begin(), reaches.end(),
              [](const Reach& a, const Reach& b) { return a.firstRow < b.firstRow; });
    auto next = reaches.cbegin();
    Reach longest{0, 0, 0};
    const auto look = [&](int row) {
        for (; next != reaches.cend() && next->firstRow <= row; ++next) {
            if (next->lastRow > longest.lastRow) longest = *next;
        }
        if (longest.lastRow < row) return;
        table.findings.push_back(
            Placed(reader, table, row, longest.column, Found(Rule::CellMerged)));
    };
    look(table.titleRow);
    for (const BulkRow& row : table.rows) look(row.number);
}

}  // namespace kelvane::entries
