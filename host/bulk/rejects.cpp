#include "host/bulk/rejects.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <set>
#include <utility>

#include "adapters/output/formats/table_file.h"
#include "data/text_conversion.h"
#include "entries/bulk/workbook_sheets.h"
#include "host/bulk/bulk_sheets.h"
#include "platform/decimal.h"
#include "platform/native_path.h"
#include "platform/table_file.h"

namespace kelvane::host {

using entries::BulkRow;
using entries::TableColumn;
using platform::CellKind;
using platform::TableCell;
using platform::TableFile;
using platform::TableFileColumn;
using platform::TableFileSheet;
using platform::TableRow;

namespace {

constexpr const char* kReasonTitle = "原因";
constexpr const char* kBetweenReasons = "；";
constexpr int kReasonWidth = 60;

using RowNumbers = std::set<int>;
// What lines refer to an entry by.
using Labels = std::set<std::string>;

std::string LabelOf(const BulkRow& row, int column) {
    return data::Trim(row.texts[static_cast<std::size_t>(column)]);
}

// The rows that were refused, and those of the `labels`.
RowNumbers WantedRows(const RefusedTable& refused, int labelColumn, const Labels& labels) {
    RowNumbers wanted;
    for (const BulkRow& row : refused.table.rows) {
        if (refused.reasons.contains(row.number) || labels.contains(LabelOf(row, labelColumn))) {
            wanted.insert(row.number);
        }
    }
    return wanted;
}

Labels LabelsOf(const RefusedTable& refused, int labelColumn, const RowNumbers& rows) {
    Labels labels;
    for (const BulkRow& row : refused.table.rows) {
        if (rows.contains(row.number)) labels.insert(LabelOf(row, labelColumn));
    }
    labels.erase("");
    return labels;
}

std::string Joined(const std::vector<std::string>& reasons) {
    std::string joined;
    for (auto each = reasons.begin(); each != reasons.end(); ++each) {
        if (std::find(reasons.begin(), each, *each) != each) continue;
        if (!joined.empty()) joined += kBetweenReasons;
        joined += *each;
    }
    return joined;
}

// A workbook's number has more digits than were ever typed: 9.95 may be 9.9499999999999993 there.
// It is written with those that a spreadsheet shows.
std::string ShownDigits(const std::string& number) {
    constexpr int kExactDigits = 15;
    double value = 0;
    std::array<char, 32> digits{};
    const char* end = number.data() + number.size();
    const auto read = std::from_chars(number.data(), end, value);
    if (read.ec != std::errc() || read.ptr != end) return number;
    const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                       std::chars_format::general, kExactDigits);
    const auto shown = platform::Decimal::FromText({digits.data(), written.ptr});
    return shown ? shown->Text() : number;
}

// A sheet of the table's wanted rows, read again.
class Sheet {
public:
    Sheet(const RefusedTable& refused, const RowNumbers& wanted)
        : mRefused(refused), mWanted(wanted) {}

    TableFileSheet Make();

private:
    void Take(const TableRow& row);
    // The columns that are written, from their places in the table to those in the sheet.
    void PlaceColumns(TableFileSheet& sheet);
    TableFileColumn ColumnAt(int place) const;
    std::string ReasonOf(int row) const;

    const RefusedTable& mRefused;
    const RowNumbers& mWanted;
    std::map<int, std::string> mTitles;  // by place; of one without a title empty
    std::vector<TableRow> mRows;
    std::map<int, int> mPlaces;
};

void Sheet::Take(const TableRow& row) {
    if (row.number == mRefused.table.titleRow) {
        for (const TableCell& cell : row.cells) mTitles[cell.column] = cell.text;
    } else if (mWanted.contains(row.number)) {
        for (const TableCell& cell : row.cells) mTitles.try_emplace(cell.column);
        mRows.push_back(row);
    }
}

TableFileColumn Sheet::ColumnAt(int place) const {
    const std::string& title = mTitles.at(place);
    for (const TableColumn& column : mRefused.shape.columns) {
        const auto& known = mRefused.table.places[static_cast<std::size_t>(column.column)];
        if (known.column == place) return FileColumnOf(mRefused.shape, column, title);
    }
    return {.title = title, .use = platform::ColumnUse::Anything, .choices = {}};
}

void Sheet::PlaceColumns(TableFileSheet& sheet) {
    for (const auto& [place, title] : mTitles) {
        if (entries::PlainTitle(title) == kReasonTitle) continue;
        sheet.columns.push_back(ColumnAt(place));
        mPlaces[place] = static_cast<int>(sheet.columns.size());
    }
    sheet.columns.push_back({.title = kReasonTitle, .width = kReasonWidth, .choices = {}});
}

std::string Sheet::ReasonOf(int row) const {
    const auto found = mRefused.reasons.find(row);
    return found == mRefused.reasons.end() ? std::string() : Joined(found->second);
}

TableFileSheet Sheet::Make() {
    mRefused.reader.Read(mRefused.table.sheet, [this](const TableRow& row) {
        Take(row);
        return true;
    });
    TableFileSheet sheet;
    sheet.name = mRefused.shape.sheet;
    PlaceColumns(sheet);
    const int reasonColumn = static_cast<int>(sheet.columns.size());
    for (TableRow& row : mRows) {
        auto& cells = sheet.rows.emplace_back();
        for (TableCell& cell : row.cells) {
            const auto place = mPlaces.find(cell.column);
            if (place == mPlaces.end()) continue;
            cell.column = place->second;
            if (cell.kind == CellKind::Number) cell.text = ShownDigits(cell.text);
            cells.push_back(std::move(cell));
        }
        cells.push_back(platform::TextCell(reasonColumn, ReasonOf(row.number)));
    }
    return sheet;
}

// What the program itself noted in the table; what others did has no meaning in this file.
std::map<std::string, std::string> OwnProperties(platform::TableReader& reader) {
    constexpr std::size_t kLongest = 255;
    std::map<std::string, std::string> own;
    const auto all = reader.Properties();
    for (const std::string_view name : {entries::kAccountProperty, entries::kLayoutProperty}) {
        const auto found = all.find(std::string(name));
        if (found != all.end() && found->second.size() <= kLongest) own.insert(*found);
    }
    return own;
}

}  // namespace

std::string LinesPathOf(const std::string& path) {
    const auto place = platform::PathOf(path);
    auto name = place.stem();
    name += platform::PathOf(".明细");
    name += place.extension();
    return platform::Utf8Of(place.parent_path() / name);
}

std::size_t WriteRejects(const std::string& path, const RefusedTable& entries,
                         const RefusedTable* lines) {
    Labels labels;
    if (lines != nullptr) {
        const RowNumbers refused = WantedRows(*lines, entries::kLineRowNumberColumn, {});
        labels = LabelsOf(*lines, entries::kLineRowNumberColumn, refused);
    }
    const RowNumbers wanted = WantedRows(entries, entries::kRowNumberColumn, labels);
    RowNumbers wantedLines;
    if (lines != nullptr) {
        labels = LabelsOf(entries, entries::kRowNumberColumn, wanted);
        wantedLines = WantedRows(*lines, entries::kLineRowNumberColumn, labels);
    }
    const std::size_t count = wanted.size() + wantedLines.size();
    if (count == 0) return 0;

    std::vector<TableFileSheet> sheets;
    sheets.push_back(Sheet(entries, wanted).Make());
    if (!wantedLines.empty()) sheets.push_back(Sheet(*lines, wantedLines).Make());
    if (output::TableFormatOf(path) == output::TableFormat::Text) {
        if (sheets.size() > 1) {
            output::WriteTableFile(LinesPathOf(path), TableFile{{std::move(sheets.back())}, {}});
            sheets.pop_back();
        }
        output::WriteTableFile(path, TableFile{std::move(sheets), {}});
    } else {
        output::WriteTableFile(path, TableFile{std::move(sheets), OwnProperties(entries.reader)});
    }
    return count;
}

}  // namespace kelvane::host
