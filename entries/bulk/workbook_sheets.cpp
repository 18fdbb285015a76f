#include "entries/bulk/workbook_sheets.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>

#include "entries/bulk/cell_text.h"
#include "entries/bulk/table_shape.h"
#include "platform/decimal.h"

namespace kelvane::entries {

using platform::CellKind;
using platform::Decimal;
using platform::Money;
using platform::TableCell;
using platform::TableReader;
using platform::TableRefused;
using platform::TableRow;

namespace {

constexpr std::string_view kTotalsSheet = "合计";
constexpr std::string_view kRowsTitle = "行数";
constexpr std::string_view kAmountTitle = "未结转期初";

std::optional<std::size_t> SheetNamed(const TableReader& reader, std::string_view name) {
    const auto& sheets = reader.Sheets();
    const auto found = std::ranges::find(sheets, name, &platform::TableSheet::name);
    if (found == sheets.end()) return std::nullopt;
    return static_cast<std::size_t>(std::distance(sheets.begin(), found));
}

bool HasRows(TableReader& reader, std::size_t sheet) {
    bool found = false;
    reader.Read(sheet, [&](const TableRow& row) {
        found = !row.cells.empty();
        return !found;
    });
    return found;
}

// The digits of a cell that is a number or is written like one; empty for a blank one.
std::string DigitsIn(const TableReader& reader, std::size_t sheet, int row, const TableCell& cell) {
    if (cell.kind == CellKind::Blank) return {};
    auto digits = cell.kind == CellKind::Number ? std::optional(cell.text)
                  : cell.kind == CellKind::Text ? AmountText(cell.text)
                                                : std::nullopt;
    if (!digits || !Decimal::FromText(*digits)) {
        throw TableRefused(reader.Place(sheet, row, cell.column, {}) + "：控制总数不是数字");
    }
    return *digits;
}

}  // namespace

std::string OriginOf(TableReader& workbook) {
    const auto properties = workbook.Properties();
    const auto layout = properties.find(std::string(kLayoutProperty));
    if (layout != properties.end() && layout->second != kLayoutVersion) {
        throw TableRefused("该工作簿的版式（" + layout->second + "）是较新版本的程序写成的");
    }
    const auto account = properties.find(std::string(kAccountProperty));
    return account == properties.end() ? std::string() : account->second;
}

std::optional<BulkTable> ReadLineSheet(TableReader& workbook, std::size_t entriesSheet,
                                       const TableReading& how) {
    if (!workbook.HasTypedCells() || workbook.Sheets().size() == 1) return std::nullopt;
    const TableShape shape = LineTableShape();
    TableReading beside = how;
    beside.taken = entriesSheet;
    BulkTable lines = ReadBulkTable(workbook, shape, beside);
    const auto own = SheetNamed(workbook, shape.sheet);
    const bool isMeant =
        lines.sheet != entriesSheet && (lines.titleRow > 0 || (own && HasRows(workbook, *own)));
    if (!isMeant) return std::nullopt;
    return lines;
}

bool HasContent(const BulkTable& lines) {
    return lines.titleRow > 0 && (!lines.rows.empty() || !lines.findings.empty());
}

// Titles in the sheet's first row that has cells, what they say in the one below.
TableTotals ReadTotals(TableReader& workbook, std::size_t entriesSheet) {
    TableTotals totals;
    const auto sheet = SheetNamed(workbook, kTotalsSheet);
    if (!sheet || *sheet == entriesSheet || !workbook.HasTypedCells()) return totals;
    int rowsColumn = 0;
    int amountColumn = 0;
    bool hasCells = false;
    workbook.Read(*sheet, [&](const TableRow& row) {
        hasCells = hasCells || !row.cells.empty();
        if (rowsColumn == 0 && amountColumn == 0) {
            for (const TableCell& cell : row.cells) {
                const std::string title = PlainTitle(cell.text);
                if (title == kRowsTitle) rowsColumn = cell.column;
                if (title == kAmountTitle) amountColumn = cell.column;
            }
            return true;
        }
        const auto digits = [&](int column) {
            return column == 0 ? std::string()
                               : DigitsIn(workbook, *sheet, row.number, row.At(column));
        };
        const std::string rows = digits(rowsColumn);
        const std::string amount = digits(amountColumn);
        if (!rows.empty()) {
            const auto count = Decimal::FromText(rows)->Scaled(0, platform::Rounding::HalfToEven);
            totals.rows.push_back(count.value_or(-1));
        }
        if (!amount.empty()) totals.sums.push_back(Money::FromText(amount));
        return false;
    });
    if (hasCells && rowsColumn == 0 && amountColumn == 0) {
        totals.notes.push_back(
            {workbook.Place(*sheet, 0, 0, {}), "没有读入控制总数：没有标题“行数”和“未结转期初”"});
    }
    return totals;
}

}  // namespace kelvane::entries
