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

// Cells for a file that is written; each is what it is, whatever its column is for. A text that is
// empty is blank.
inline TableCell TextCell(int column, std::string text) {
    const CellKind kind = text.empty() ? CellKind::Blank : CellKind::Text;
    return {column, kind, std::move(text), {}};
}
// `digits`: a decimal number.
inline TableCell NumberCell(int column, std::string digits) {
    return {column, CellKind::Number, std::move(digits), {}};
}
inline TableCell DateCell(int column, const DateTime& date) {
    return {column, CellKind::Date, {}, date};
}

struct TableFileSheet {
    std::string name;
    std::vector<TableFileColumn> columns;
    // Cells by column, from 1; those that lack are blank. A formula without a result is written as
    // a blank, an error as its text.
    std::vector<std::vector<TableCell>> rows;
    bool hidden = false;
    bool frozenTitles = true;  // the titles stay when the rows are moved
};

struct TableFile {
    std::vector<TableFileSheet> sheets;             // at least one, the first not hidden
    std::map<std::string, std::string> properties;  // a workbook's own ones
};

}  // namespace kelvane::platform
