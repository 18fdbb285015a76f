// The rows of a table of entries, each with its detail lines: what a table says, before any rule
// was asked.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "entries/bulk/table_reading.h"
#include "entries/bulk/table_shape.h"
#include "entries/detail_line.h"
#include "entries/entry.h"
#include "entries/rules.h"

namespace kelvane::entries {

// Columns of a table, by their numbers in its shape.
class ColumnSet {
public:
    void Add(int column) { mBits |= Bit(column); }
    void Remove(int column) { mBits &= ~Bit(column); }
    bool Has(int column) const { return (mBits & Bit(column)) != 0; }

private:
    static std::uint32_t Bit(int column) { return std::uint32_t{1} << column; }

    std::uint32_t mBits = 0;
};

struct BulkLine {
    int row = 0;            // as the table counts
    std::string rowNumber;  // of the entry that it belongs to
    LineTexts texts;
    ColumnSet unread;  // cells of which nothing is known but that they are refused
};

struct BulkEntry {
    int row = 0;
    EntryTexts texts;
    std::string rowNumber;
    std::string operation;
    std::string identity;
    std::string check;
    ColumnSet unread;
    std::vector<BulkLine> lines;
};

enum class BulkTableKind { Entries, Lines };

// A finding with the table's row, 0 for the table as a whole, and the shape's column, 0 for the row
// as a whole.
struct BulkFinding {
    BulkTableKind table = BulkTableKind::Entries;
    int row = 0;
    int column = 0;
    Finding finding;
};

struct BulkEntries {
    std::vector<BulkEntry> entries;
    // Lines of an entry that is not there.
    std::vector<BulkLine> strayLines;
    std::vector<BulkFinding> findings;
    // The tables have findings of their own.
    bool isRefused = false;
};

// Brings lines to the entries whose row number they have. Finds row numbers that stand twice and
// lines without an entry. `lines` is null where there are none.
BulkEntries JoinTables(const BulkTable& entries, const BulkTable* lines);

// The rows by themselves, and what JoinTables() makes of them. `isRefused` is the caller's to say
// then.
std::vector<BulkEntry> EntriesOf(const BulkTable& table);
std::vector<BulkLine> LinesOf(const BulkTable& table);
BulkEntries JoinRows(std::vector<BulkEntry> entries, std::vector<BulkLine> lines);

// The column of a table of lines in which a line's column stands.
int LineTableColumnOf(LineColumn column);

}  // namespace kelvane::entries
