#include "entries/bulk/bulk_entry.h"

#include <algorithm>
#include <map>
#include <utility>

#include "data/text_conversion.h"

namespace kelvane::entries {

namespace {

std::string TextAt(const BulkRow& row, int column) {
    return row.texts[static_cast<std::size_t>(column)];
}

std::string LabelAt(const BulkRow& row, int column) {
    return data::Trim(TextAt(row, column));
}

// The refused cells of each row, by the shape's columns.
std::map<int, ColumnSet> RefusedCells(const BulkTable& table) {
    std::map<int, int> columns;
    for (std::size_t column = 0; column < table.places.size(); ++column) {
        if (table.places[column].column > 0) {
            columns[table.places[column].column] = static_cast<int>(column);
        }
    }
    std::map<int, ColumnSet> refused;
    for (const PlacedFinding& found : table.findings) {
        const auto column = columns.find(found.column);
        if (found.row > 0 && column != columns.end()) refused[found.row].Add(column->second);
    }
    return refused;
}

ColumnSet RefusedIn(const std::map<int, ColumnSet>& refused, int row) {
    const auto found = refused.find(row);
    return found == refused.end() ? ColumnSet() : found->second;
}

BulkEntry EntryIn(const BulkRow& row) {
    BulkEntry entry;
    entry.row = row.number;
    for (int column = kDateColumn; column <= kAmountColumn; ++column) {
        entry.texts.cells[static_cast<std::size_t>(column)] = TextAt(row, column);
    }
    entry.rowNumber = LabelAt(row, kRowNumberColumn);
    entry.operation = LabelAt(row, kOperationColumn);
    entry.identity = LabelAt(row, kIdentityColumn);
    entry.check = LabelAt(row, kCheckColumn);
    return entry;
}

BulkLine LineIn(const BulkRow& row) {
    BulkLine line;
    line.row = row.number;
    line.rowNumber = LabelAt(row, kLineRowNumberColumn);
    line.texts = {.code = LabelAt(row, kLineCodeColumn),
                  .name = LabelAt(row, kLineNameColumn),
                  .price = LabelAt(row, kLinePriceColumn),
                  .quantity = LabelAt(row, kLineQuantityColumn),
                  .amount = LabelAt(row, kLineAmountColumn)};
    return line;
}

// Which of `entries` has a row number; each place of one that stands twice is a finding that names
// the first or the next of them.
std::map<std::string, std::size_t> ByRowNumber(BulkEntries& joined) {
    std::map<std::string, std::vector<std::size_t>> places;
    for (std::size_t at = 0; at < joined.entries.size(); ++at) {
        const std::string& number = joined.entries[at].rowNumber;
        if (!number.empty()) places[number].push_back(at);
    }
    std::map<std::string, std::size_t> first;
    for (const auto& [number, at] : places) {
        first[number] = at.front();
        for (std::size_t i = 0; at.size() > 1 && i < at.size(); ++i) {
            const int row = joined.entries[at[i]].row;
            const int other = joined.entries[at[i == 0 ? 1 : 0]].row;
            joined.findings.push_back(
                {BulkTableKind::Entries, row, kRowNumberColumn,
                 Found(Rule::EntryRowNumberTwice, number, std::to_string(other))});
            // Whose the lines are nobody can tell, nor what they come to.
            joined.entries[at[i]].unread.Add(kAmountColumn);
        }
    }
    return first;
}

bool HasUndecidedRows(const BulkTable& table) {
    return std::ranges::any_of(table.findings, [](const PlacedFinding& each) {
        return each.finding.rule == Rule::FileHidden;
    });
}

// The rows of a table, each with the cells that are refused.
template <typename Row>
std::vector<Row> RowsOf(const BulkTable& table, Row (*make)(const BulkRow&)) {
    const auto refused = RefusedCells(table);
    std::vector<Row> rows;
    rows.reserve(table.rows.size());
    for (const BulkRow& row : table.rows) {
        rows.push_back(make(row));
        rows.back().unread = RefusedIn(refused, row.number);
    }
    return rows;
}

}  // namespace

std::vector<BulkEntry> EntriesOf(const BulkTable& table) {
    return RowsOf(table, EntryIn);
}

std::vector<BulkLine> LinesOf(const BulkTable& table) {
    return RowsOf(table, LineIn);
}

BulkEntries JoinTables(const BulkTable& entries, const BulkTable* lines) {
    BulkEntries joined =
        JoinRows(EntriesOf(entries), lines == nullptr ? std::vector<BulkLine>() : LinesOf(*lines));
    joined.isRefused = !entries.findings.empty() || (lines != nullptr && !lines->findings.empty());
    if (lines != nullptr && HasUndecidedRows(*lines)) {
        // Nothing can be said of what lines come to while some of them may be left out.
        for (BulkEntry& entry : joined.entries) {
            if (!entry.rowNumber.empty()) entry.unread.Add(kAmountColumn);
        }
    }
    return joined;
}

BulkEntries JoinRows(std::vector<BulkEntry> entries, std::vector<BulkLine> lines) {
    BulkEntries joined;
    joined.entries = std::move(entries);
    const auto byNumber = ByRowNumber(joined);
    for (BulkLine& line : lines) {
        const auto entry = byNumber.find(line.rowNumber);
        if (entry != byNumber.end()) {
            joined.entries[entry->second].lines.push_back(std::move(line));
            continue;
        }
        if (!line.unread.Has(kLineRowNumberColumn)) {
            joined.findings.push_back({BulkTableKind::Lines, line.row, kLineRowNumberColumn,
                                       line.rowNumber.empty()
                                           ? Found(Rule::LineEntryNone)
                                           : Found(Rule::LineEntryMissing, line.rowNumber)});
        }
        joined.strayLines.push_back(std::move(line));
    }
    return joined;
}

int LineTableColumnOf(LineColumn column) {
    switch (column) {
        case LineColumn::Code:
            return kLineCodeColumn;
        case LineColumn::Name:
            return kLineNameColumn;
        case LineColumn::Price:
            return kLinePriceColumn;
        case LineColumn::Quantity:
            return kLineQuantityColumn;
        case LineColumn::Amount:
            return kLineAmountColumn;
    }
    return 0;
}

}  // namespace kelvane::entries
