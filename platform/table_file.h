// A file of tables that is to be written, without any of the formats that it may take: sheets with
// their columns and rows, as an operator fills them in or reads them.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/date_time.h"
#include "platform/table.h"

namespace kelvane::platform {

// What an operator types into a column. Texts and codes stay what was typed; a number is shown as
// it is, an amount with grouping commas. Anything: nobody knows.
enum class ColumnUse { Anything, Text, Code, Date, Amount, Number };

struct TableFileColumn {
    std::string title;
    ColumnUse use = ColumnUse::Text;
    int width = 12;  // in characters
    bool hidden = false;
    std::vector<std::string> choices;  // what its list offers; empty: it has none
};

// A cell is what it is, whatever its column is for. A formula without a result becomes blank, an
// error its text.
struct TableFileCell {
    CellKind kind = CellKind::Blank;
    std::string text;  // of a number its digits, of a date that stands for no day likewise
    DateTime date;     // of a date
};

// Blank when `text` is empty.
inline TableFileCell TextCell(std::string text) {
    const CellKind kind = text.empty() ? CellKind::Blank : CellKind::Text;
    return {kind, std::move(text), {}};
}
// `digits`: a plain decimal number.
inline TableFileCell NumberCell(std::string digits) {
    return {CellKind::Number, std::move(digits), {}};
}
inline TableFileCell DateCell(const DateTime& date) {
    return {CellKind::Date, {}, date};
}

struct TableFileSheet {
    std::string name;
    std::vector<TableFileColumn> columns;
    std::vector<std::vector<TableFileCell>> rows;  // cells by column; those that lack are blank
    bool hidden = false;
    bool frozenTitles = true;  // the titles stay when the rows are moved
};

struct TableFile {
    std::vector<TableFileSheet> sheets;             // at least one, the first not hidden
    std::map<std::string, std::string> properties;  // a workbook's own ones
};

}  // namespace kelvane::platform
