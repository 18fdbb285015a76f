#include "host/bulk/bulk_source.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "adapters/tables/open_table.h"
#include "entries/bulk/cell_text.h"
#include "entries/bulk/title_row.h"
#include "platform/decimal.h"

namespace kelvane::host {

using entries::BulkTable;
using entries::BulkTableKind;
using entries::PlacedFinding;
using entries::TableReading;
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
                  : cell.kind == CellKind::Text ? entries::AmountText(cell.text)
                                                : std::nullopt;
    if (!digits || !Decimal::FromText(*digits)) {
        throw TableRefused(reader.Place(sheet, row, cell.column, {}) + "：控制总数不是数字");
    }
    return *digits;
}

}  // namespace

BulkSource::BulkSource(const BulkFiles& files, const AccountTitles& titles,
                       const BulkProposals& proposals)
    : mEntriesReader(tables::OpenTable(files.entries, files.encoding)) {
    ReadOrigin();
    // Whether rows need a number depends on the lines, but which sheet has the entries does not.
    const auto shape = [&](bool withLines) {
        return entries::EntryTableShape(titles.itemName, titles.keywords, withLines);
    };
    const std::size_t sheet = entries::ChooseSheet(*mEntriesReader, shape(false), files.sheet);
    ReadLines(files, sheet, proposals.lines);
    const bool hasLines =
        mLines && mLines->titleRow > 0 && (!mLines->rows.empty() || !mLines->findings.empty());
    mEntryShape = shape(hasLines);
    mEntries = entries::ReadBulkTable(*mEntriesReader, mEntryShape,
                                      {files.sheet, files.hidden, proposals.entries});
    ReadTotals();
}

// A layout that a later program made may mean something else.
void BulkSource::ReadOrigin() {
    const auto properties = mEntriesReader->Properties();
    const auto layout = properties.find(std::string(kLayoutProperty));
    if (layout != properties.end() && layout->second != kLayoutVersion) {
        throw TableRefused("该工作簿的版式（" + layout->second + "）是较新版本的程序写成的");
    }
    const auto account = properties.find(std::string(kAccountProperty));
    if (account != properties.end()) mOrigin = account->second;
}

// Lines of a workbook stand in a sheet of their own, beside the entries'.
void BulkSource::ReadLines(const BulkFiles& files, std::size_t entriesSheet,
                           const entries::CodeProposal& propose) {
    TableReading how{{}, files.hidden, propose};
    if (!files.lines.empty()) {
        mLinesReader = tables::OpenTable(files.lines, files.encoding);
        mLines = entries::ReadBulkTable(*mLinesReader, mLineShape, how);
        return;
    }
    TableReader& workbook = *mEntriesReader;
    if (!workbook.HasTypedCells() || workbook.Sheets().size() == 1) return;
    how.taken = entriesSheet;
    BulkTable lines = entries::ReadBulkTable(workbook, mLineShape, how);
    const auto own = SheetNamed(workbook, mLineShape.sheet);
    const bool isMeant =
        lines.sheet != entriesSheet && (lines.titleRow > 0 || (own && HasRows(workbook, *own)));
    if (isMeant) mLines = std::move(lines);
}

// Titles in the sheet's first row that has cells, what they say in the one below.
void BulkSource::ReadTotals() {
    TableReader& workbook = *mEntriesReader;
    const auto sheet = SheetNamed(workbook, kTotalsSheet);
    if (!sheet || *sheet == mEntries.sheet || !workbook.HasTypedCells()) return;
    int rowsColumn = 0;
    int amountColumn = 0;
    bool hasCells = false;
    workbook.Read(*sheet, [&](const TableRow& row) {
        hasCells = hasCells || !row.cells.empty();
        if (rowsColumn == 0 && amountColumn == 0) {
            for (const TableCell& cell : row.cells) {
                const std::string title = entries::PlainTitle(cell.text);
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
            mExpectedRows.push_back(count.value_or(-1));
        }
        if (!amount.empty()) mExpectedSums.push_back(Money::FromText(amount));
        return false;
    });
    if (hasCells && rowsColumn == 0 && amountColumn == 0) {
        mEntries.notes.push_back(
            {workbook.Place(*sheet, 0, 0, {}), "没有读入控制总数：没有标题“行数”和“未结转期初”"});
    }
}

PlacedFindings BulkSource::PlaceByTable(const std::vector<entries::BulkFinding>& found) const {
    PlacedFindings placed{mEntries.findings, {}};
    if (mLines) placed.lines = mLines->findings;
    const TableReader& linesReader = mLinesReader ? *mLinesReader : *mEntriesReader;
    for (const entries::BulkFinding& each : found) {
        if (each.table == BulkTableKind::Entries) {
            placed.entries.push_back(
                entries::Placed(*mEntriesReader, mEntries, each.row, each.column, each.finding));
        } else {
            placed.lines.push_back(
                entries::Placed(linesReader, *mLines, each.row, each.column, each.finding));
        }
    }
    for (auto* table : {&placed.entries, &placed.lines}) {
        std::ranges::stable_sort(
            *table, {}, [](const PlacedFinding& each) { return std::pair(each.row, each.column); });
    }
    return placed;
}

std::vector<PlacedFinding> BulkSource::Place(const std::vector<entries::BulkFinding>& found) const {
    PlacedFindings placed = PlaceByTable(found);
    // In a workbook the sheet of lines may be the first.
    const bool linesAreFirst = mLines && !mLinesReader && mLines->sheet < mEntries.sheet;
    auto& first = linesAreFirst ? placed.lines : placed.entries;
    std::ranges::move(linesAreFirst ? placed.entries : placed.lines, std::back_inserter(first));
    return std::move(first);
}

std::vector<entries::TableNote> BulkSource::Notes() const {
    std::vector<entries::TableNote> notes = mEntries.notes;
    if (mLines) notes.insert(notes.end(), mLines->notes.begin(), mLines->notes.end());
    return notes;
}

}  // namespace kelvane::host
