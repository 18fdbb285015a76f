#include "host/bulk/bulk_source.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "adapters/tables/open_table.h"
#include "entries/bulk/title_row.h"

namespace kelvane::host {

using entries::BulkTable;
using entries::BulkTableKind;
using entries::PlacedFinding;
using entries::TableReading;
using platform::TableReader;

BulkSource::BulkSource(const BulkFiles& files, const entries::AccountTitles& titles,
                       const BulkProposals& proposals)
    : mEntriesReader(tables::OpenTable(files.entries, files.encoding)) {
    mOrigin = entries::OriginOf(*mEntriesReader);
    // Whether rows need a number depends on the lines, but which sheet has the entries does not.
    const auto shape = [&](bool withLines) {
        return entries::EntryTableShape(titles.itemName, titles.keywords, withLines);
    };
    const std::size_t sheet = entries::ChooseSheet(*mEntriesReader, shape(false), files.sheet);
    ReadLines(files, sheet, proposals.lines);
    mEntryShape = shape(mLines && entries::HasContent(*mLines));
    mEntries = entries::ReadBulkTable(*mEntriesReader, mEntryShape,
                                      {files.sheet, files.hidden, proposals.entries});
    mTotals = entries::ReadTotals(*mEntriesReader, mEntries.sheet);
}

// Lines of a workbook stand in a sheet of their own, beside the entries'.
void BulkSource::ReadLines(const BulkFiles& files, std::size_t entriesSheet,
                           const entries::CodeProposal& propose) {
    const TableReading how{{}, files.hidden, propose};
    if (!files.lines.empty()) {
        mLinesReader = tables::OpenTable(files.lines, files.encoding);
        mLines = entries::ReadBulkTable(*mLinesReader, mLineShape, how);
        return;
    }
    mLines = entries::ReadLineSheet(*mEntriesReader, entriesSheet, how);
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
    std::ranges::copy(mTotals.notes, std::back_inserter(notes));
    if (mLines) notes.insert(notes.end(), mLines->notes.begin(), mLines->notes.end());
    return notes;
}

}  // namespace kelvane::host
