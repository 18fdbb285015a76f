#include "adapters/output/layout/table_columns.h"

#include <algorithm>
#include <cstdint>

namespace kelvane::output {

namespace {

constexpr int kNarrowest = 20;

struct Width {
    std::size_t cell;
    std::int64_t tenths;
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
void FitTo(std::vector<Width>& columns, std::int64_t room) {
    std::int64_t total = 0;
    for (const Width& column : columns) total += column.tenths;
    if (total <= room) return;
    std::int64_t passed = 0;
    for (Width& column : columns) {
        const std::int64_t begin = passed * room / total;
        passed += column.tenths;
        column.tenths = std::max(std::int64_t{1}, passed * room / total - begin);
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
        column.tenths = std::min<std::int64_t>(column.tenths, room);
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
