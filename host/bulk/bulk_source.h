// BulkSource: the file or files of an import, opened and read: entries, their lines, and what the
// file itself says of its totals.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "adapters/tables/text_decoder.h"
#include "entries/bulk/bulk_entry.h"
#include "entries/bulk/table_reading.h"
#include "entries/bulk/table_shape.h"
#include "entries/bulk/workbook_sheets.h"
#include "host/bulk/bulk_sheets.h"
#include "platform/money.h"
#include "platform/table.h"

namespace kelvane::host {

struct BulkFiles {
    std::string entries;
    std::string lines;  // empty: the workbook's own sheet, if it has one
    std::string sheet;  // of the entries; empty: the usual one
    tables::TextEncoding encoding = tables::TextEncoding::Detect;
    entries::HiddenRows hidden = entries::HiddenRows::Refuse;
};

// What may have stood where a table has a number in place of a code.
struct BulkProposals {
    entries::CodeProposal entries;
    entries::CodeProposal lines;
};

// Findings at their places, each table's in its order.
struct PlacedFindings {
    std::vector<entries::PlacedFinding> entries;
    std::vector<entries::PlacedFinding> lines;
};

class BulkSource {
public:
    // Reads everything. Throws platform::TableRefused.
    BulkSource(const BulkFiles& files, const entries::AccountTitles& titles,
               const BulkProposals& proposals);

    const entries::BulkTable& Entries() const { return mEntries; }
    const entries::TableShape& EntryShape() const { return mEntryShape; }
    const entries::TableShape& LineShape() const { return mLineShape; }
    // Null where there are none.
    const entries::BulkTable* Lines() const { return mLines ? &*mLines : nullptr; }
    platform::TableReader& EntriesReader() { return *mEntriesReader; }
    platform::TableReader& LinesReader() { return mLinesReader ? *mLinesReader : *mEntriesReader; }

    // The account that an editable workbook was written from; empty for any other table.
    const std::string& Origin() const { return mOrigin; }

    // What the sheet of totals says; empty without one.
    const std::vector<std::int64_t>& ExpectedRows() const { return mTotals.rows; }
    const std::vector<platform::Money>& ExpectedSums() const { return mTotals.sums; }

    // All findings, those of reading and `found`, each at its place; by tables, or one after the
    // other in the order of the file.
    PlacedFindings PlaceByTable(const std::vector<entries::BulkFinding>& found) const;
    std::vector<entries::PlacedFinding> Place(const std::vector<entries::BulkFinding>& found) const;
    // What was not read and is no fault.
    std::vector<entries::TableNote> Notes() const;

private:
    void ReadLines(const BulkFiles& files, std::size_t entriesSheet,
                   const entries::CodeProposal& propose);

    entries::TableShape mEntryShape;
    entries::TableShape mLineShape = entries::LineTableShape();
    std::unique_ptr<platform::TableReader> mEntriesReader;
    std::unique_ptr<platform::TableReader> mLinesReader;  // of a file of their own
    entries::BulkTable mEntries;
    std::optional<entries::BulkTable> mLines;
    std::string mOrigin;
    entries::TableTotals mTotals;
};

}  // namespace kelvane::host
