#include "entries/bulk/title_row.h"

#include <algorithm>
#include <utility>

#include "data/text_conversion.h"
#include "platform/one_line.h"

namespace kelvane::entries {

using platform::TableCell;
using platform::TableReader;
using platform::TableRow;
using platform::TableSheet;

namespace {

const std::string& NameOf(const TableShape& shape, int column) {
    const auto found =
        std::find_if(shape.columns.begin(), shape.columns.end(),
                     [column](const TableColumn& each) { return each.column == column; });
    return found->titles.front();
}

bool HasTitles(TableReader& reader, std::size_t sheet, const TableShape& shape) {
    bool found = false;
    reader.Read(sheet, [&](const TableRow& row) {
        if (row.position > kLastTitleRow) return false;
        found = IsTitleRow(row, shape);
        return !found;
    });
    return found;
}

}  // namespace

bool IsTitleRow(const TableRow& row, const TableShape& shape) {
    const auto has = [&](int column) {
        return std::any_of(row.cells.begin(), row.cells.end(), [&](const TableCell& cell) {
            const TableColumn* known = FindColumn(shape, cell.text);
            return known != nullptr && known->column == column;
        });
    };
    return has(shape.firstMark) &&
           (has(shape.secondMark) || std::ranges::any_of(shape.otherMarks, has));
}

std::string TitleMarks(const TableShape& shape) {
    return "“" + NameOf(shape, shape.firstMark) + "”和“" + NameOf(shape, shape.secondMark) + "”";
}

bool TakeTitles(const TableReader& reader, const TableRow& row, const TableShape& shape,
                BulkTable& table) {
    table.titleRow = row.number;
    table.places.assign(static_cast<std::size_t>(shape.columnCount), {});
    const std::size_t before = table.findings.size();
    const auto find = [&](int column, const std::string& title, Rule rule) {
        table.findings.push_back({reader.Place(table.sheet, row.number, column, title), row.number,
                                  column, title, Found(rule, title)});
    };
    const auto leaveOut = [&](const BulkTable::Place& place) {
        table.notes.push_back({reader.Place(table.sheet, row.number, place.column, place.title),
                               "没有读入列“" + place.title + "”"});
    };
    const auto placeOf = [&](int column) -> BulkTable::Place& {
        return table.places[static_cast<std::size_t>(column)];
    };
    for (const TableCell& cell : row.cells) {
        if (PlainTitle(cell.text).empty()) continue;
        BulkTable::Place place{cell.column, data::Trim(platform::OneLine(cell.text))};
        const TableColumn* column = FindColumn(shape, place.title);
        if (column == nullptr) {
            leaveOut(place);
            continue;
        }
        BulkTable::Place& known = placeOf(column->column);
        if (known.column == 0) {
            known = std::move(place);
        } else if (column->belongsTo == 0) {
            find(cell.column, column->titles.front(), Rule::FileColumnTwice);
        } else {
            if (placeOf(column->belongsTo).column == 0) std::swap(known, place);
            leaveOut(place);
        }
    }
    for (const TableColumn& column : shape.columns) {
        const bool there = table.places[static_cast<std::size_t>(column.column)].column > 0;
        if (there || !column.needed) continue;
        find(0, column.titles.front(), Rule::FileColumnMissing);
    }
    return table.findings.size() == before;
}

std::size_t ChooseSheet(TableReader& reader, const TableShape& shape, const std::string& named,
                        std::optional<std::size_t> taken) {
    const std::vector<TableSheet>& sheets = reader.Sheets();
    const auto find = [&](const std::string& name) {
        const auto found = std::find_if(sheets.begin(), sheets.end(),
                                        [&](const TableSheet& each) { return each.name == name; });
        return static_cast<std::size_t>(found - sheets.begin());
    };
    if (!named.empty()) {
        const std::size_t sheet = find(named);
        if (sheet == sheets.size()) {
            throw platform::TableRefused("没有名为“" + named + "”的工作表");
        }
        return sheet;
    }
    const std::size_t own = find(shape.sheet);
    if (own < sheets.size() || sheets.size() == 1) return own % sheets.size();
    // One that is not shown was hardly meant.
    for (const bool hidden : {false, true}) {
        for (std::size_t sheet = 0; sheet < sheets.size(); ++sheet) {
            const bool isCandidate = sheets[sheet].hidden == hidden && sheet != taken;
            if (isCandidate && HasTitles(reader, sheet, shape)) return sheet;
        }
    }
    return 0;
}

}  // namespace kelvane::entries
