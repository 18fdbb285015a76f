// Reads a table of entries or of detail lines, wherever it comes from: finds its titles, brings its
// rows into the texts that an operator would type, and tells what is wrong with a cell before any
// rule of the entry is asked. Nothing is written.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "entries/bulk/cell_text.h"
#include "entries/bulk/table_shape.h"
#include "entries/rules.h"
#include "platform/table.h"

namespace kelvane::entries {

// What becomes of rows that the table does not show. Refuse: a finding, and none of them is read.
enum class HiddenRows { Refuse, Skip, Take };

// A finding and where an operator finds what it is about.
struct PlacedFinding {
    std::string place;
    int row = 0;        // of the table's own numbers; 0: the table as a whole
    int column = 0;     // likewise; 0: the row as a whole
    std::string title;  // the column's
    Finding finding;
    std::string given = {};  // what the table has in a cell that was refused
};

// What is told of a table and is no fault.
struct TableNote {
    std::string place;
    std::string text;
};

// A row by the shape's columns; text 0 stays empty, and so does a column's that is not there.
struct BulkRow {
    int number = 0;
    std::vector<std::string> texts;
};

struct BulkTable {
    // Where a column of the shape stands; 0: it is not there.
    struct Place {
        int column = 0;
        std::string title;
    };

    std::size_t sheet = 0;
    int titleRow = 0;  // 0: none was found, and nothing was read
    std::vector<Place> places;
    std::vector<BulkRow> rows;            // without blank ones
    std::vector<PlacedFinding> findings;  // in the table's order
    std::vector<TableNote> notes;
    int hiddenRows = 0;
};

// Where the columns stand in a table whose titles do not say it.
struct GivenColumns {
    int titleRow = 0;  // rows up to this one, by the table's numbers, are not read
    std::vector<BulkTable::Place> places;
};

struct TableReading {
    // The one to read; empty: the shape's own, or the first that has the titles.
    std::string sheet = {};
    HiddenRows hidden = HiddenRows::Refuse;
    CodeProposal propose = {};  // may be empty
    // A sheet that is another table, whatever its titles are.
    std::optional<std::size_t> taken = {};
    std::optional<GivenColumns> columns = {};
};

// Throws platform::TableRefused, also when there is no sheet of the name that was given.
BulkTable ReadBulkTable(platform::TableReader& reader, const TableShape& shape,
                        const TableReading& how);

// Where the cell of a row stands, by the shape's column; 0, or a column that is not there, stands
// for the row.
std::string PlaceOf(const platform::TableReader& reader, const BulkTable& table, int row,
                    int column);

// `finding` at its place.
PlacedFinding Placed(const platform::TableReader& reader, const BulkTable& table, int row,
                     int column, Finding finding);

}  // namespace kelvane::entries
