#include "adapters/output/table_columns.h"

#include <algorithm>

namespace kelvane::output {

namespace {

constexpr int kNarrowest = 20;

struct Width {
    std::size_t cell;
    long tenths;
};

std::vector<Width> ShownColumns(const Sheet& sheet) {
    std::vector<Width> shown;
    for (std::size_t cell = 0; cell < sheet.columns.size(); ++cell) {
        const int twips = sheet.columns[cell].width;
        if (twips > 0) shown.push_back({cell, std::max(kNarrowest, TenthsOfTwips(twips))});
    }
    return shown;
}

// Scales all columns so that together they are as wide as the room.
void FitTo(std::vector<Width>& columns, long room) {
    long total = 0;
    for (const Width& column : columns) total += column.tenths;
    if (total <= room) return;
    long passed = 0;
    for (Width& column : columns) {
        const long begin = passed * room / total;
        passed += column.tenths;
        column.tenths = std::max(1L, passed * room / total - begin);
    }
}

PlacedColumn Place(const Sheet& sheet, const Width& column, int left) {
    const platform::ColumnText& text = sheet.columns[column.cell];
    return {.cell = column.cell,
            .left = left,
            .width = static_cast<int>(column.tenths),
            .alignment = static_cast<platform::PageAlignment>(text.alignment)};
}

}  // namespace

std::vector<ColumnGroup> PlaceColumns(const Sheet& sheet) {
    std::vector<Width> columns = ShownColumns(sheet);
    const int printable = PrintableWidth(sheet.settings);
    const int indent = std::clamp(sheet.table.left, 0, printable / 2);
    const int room = printable - indent;
    if (sheet.settings.fitWidth) FitTo(columns, room);

    const int first = sheet.settings.marginLeft + indent;
    std::vector<ColumnGroup> groups;
    int left = first;
    for (Width column : columns) {
        column.tenths = std::min<long>(column.tenths, room);
        if (groups.empty() || left + column.tenths > first + room) {
            groups.emplace_back();
            left = first;
        }
        groups.back().push_back(Place(sheet, column, left));
        left += static_cast<int>(column.tenths);
    }
    return groups;
}

}  // namespace kelvane::output
