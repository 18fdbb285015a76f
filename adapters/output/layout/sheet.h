// Sheet: everything that is to stand on paper, before it is laid out on pages. Lengths are tenths
// of a millimetre.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "adapters/output/layout/page_settings.h"
#include "platform/grid_text.h"

namespace kelvane::output {

struct Position {
    int left = 0;
    int top = 0;

    friend bool operator==(const Position&, const Position&) = default;
};

// A caption with its value, in the header from the page's upper margin, in the footer from the
// lower end of the rows.
struct SheetItem {
    std::string caption;
    std::string value;
    Position position;
    int width = 0;
};

struct Sheet {
    // Where the settings are kept.
    std::string styleFile;
    PageSettings settings;
    std::string title;
    // The title stands in the middle of what lies between the upper margin and this distance.
    Position titleEnd{0, 200};
    std::vector<SheetItem> header;
    std::vector<SheetItem> footer;
    // Left upper corner of the table, from the page's margins.
    Position table{0, 260};
    std::vector<platform::ColumnText> columns;
    // The cells of a row, counted from 0, joined by a tab: one for each column.
    int rows = 0;
    std::function<std::string(int)> cells;
};

// Tenths of a millimetre of so many twips.
constexpr int TenthsOfTwips(int twips) {
    return static_cast<int>(twips * 254L / 1440);
}

}  // namespace kelvane::output
