// Tables that come from outside: a workbook's sheets, a text file, what was copied elsewhere. A
// reader gives the rows one after the other and keeps none, so that a long table costs no room.
#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/date_time.h"

namespace kelvane::platform {

enum class CellKind {
    Blank,
    Text,
    Number,    // text: the digits as the file has them, perhaps with an exponent
    Date,      // a number that is shown as a date; text: the number
    Error,     // text: "#DIV/0!"
    NoResult,  // a formula whose result was not stored
};

struct TableCell {
    int column = 0;  // from 1
    CellKind kind = CellKind::Blank;
    std::string text;
    DateTime date;  // of a date; one that is not valid where the number stands for no day
};

struct TableRow {
    int number = 0;    // in a workbook the row's number, else the file's line in which it begins
    int position = 0;  // among the table's rows, blank ones included, from 1
    bool hidden = false;
    std::vector<TableCell> cells;  // by column; blank ones are left out

    // The cell of `column`, blank where there is none.
    const TableCell& At(int column) const {
        static const TableCell kBlank;
        const auto found = std::lower_bound(
            cells.begin(), cells.end(), column,
            [](const TableCell& cell, int sought) { return cell.column < sought; });
        return found != cells.end() && found->column == column ? *found : kBlank;
    }
};

// Cells that were merged into one; rows and columns from 1, both ends belong to it.
struct CellRange {
    int firstRow = 0;
    int firstColumn = 0;
    int lastRow = 0;
    int lastColumn = 0;

    friend bool operator==(const CellRange&, const CellRange&) = default;
};

struct TableSheet {
    std::string name;  // empty where the table is all there is
    bool hidden = false;
};

// The table cannot be read; says in Chinese which and why.
class TableRefused : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

class TableReader {
public:
    virtual ~TableReader() = default;
    TableReader() = default;
    TableReader(const TableReader&) = delete;
    TableReader& operator=(const TableReader&) = delete;

    // At least one.
    virtual const std::vector<TableSheet>& Sheets() const = 0;
    // Whether cells say themselves what they are; else each of them is a text.
    virtual bool HasTypedCells() const = 0;
    // Gives `take` the sheet's rows in their order until it answers false; rows without any cell
    // are left out. Returns the merged cells, none when `take` ended it. Throws TableRefused, also
    // behind rows that were given already, and passes on what `take` throws.
    virtual std::vector<CellRange> Read(std::size_t sheet,
                                        const std::function<bool(const TableRow&)>& take) = 0;
    // What the program that made a workbook noted in it, by name; nothing in a text. Throws
    // TableRefused.
    virtual std::map<std::string, std::string> Properties() { return {}; }
    // Where an operator finds a cell: "期初!C7", or "FILE:7:TITLE" in a text. `row`: a row's
    // number. Without column and title the row is meant, without row the whole sheet or file.
    virtual std::string Place(std::size_t sheet, int row, int column,
                              std::string_view title) const = 0;
};

}  // namespace kelvane::platform
