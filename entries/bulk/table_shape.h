// What columns a table of entries or of detail lines has, and by what titles they are known.
#pragma once

#include <cstddef>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "entries/entry.h"
#include "entries/rules.h"

namespace kelvane::entries {

// Behind an entry's own columns (EntryColumn).
enum EntryTableColumn {
    kRowNumberColumn = kEntryColumnCount,  // what its lines refer to it by
    kOperationColumn,
    kIdentityColumn,
    kCheckColumn,
    kEntryTableColumnCount,
};

enum LineTableColumn {
    kLineRowNumberColumn = 1,
    kLineCodeColumn,
    kLineNameColumn,
    kLineModelColumn,
    kLineUnitColumn,
    kLinePriceColumn,
    kLineQuantityColumn,
    kLineAmountColumn,
    kLineTableColumnCount,
};

// What stands in the operation's column of a row whose entry is to be deleted.
inline constexpr std::string_view kDeletionMark = "删除";

// How the cells of a column are to be understood.
enum class CellUse { Text, Code, Label, Date, Number };

struct TableColumn {
    int column = 0;
    CellUse use = CellUse::Text;
    bool needed = false;
    std::vector<std::string> titles;  // any of them; the first is what the column is called
    // Of several with its title the one that belongs to that column: the last before it, else the
    // first behind it. 0: there must not be several.
    int belongsTo = 0;
};

struct TableShape {
    std::string sheet;  // as the sheet is called unless another one is named
    std::vector<TableColumn> columns;
    std::map<std::string, std::size_t> byTitle;  // plain titles
    int columnCount = 0;                         // beyond the greatest column
    // The row that has both of these is the titles' row.
    int firstMark = 0;
    int secondMark = 0;
    std::vector<int> otherMarks = {};    // any of them does in place of the second
    std::size_t mostRows = 0;            // 0: any number of them
    Rule noNumber = Rule::AmountNumber;  // what a number is refused by that is none
};

// A keyword field of the item class; what is a number by its type loses nothing as one.
struct KeywordField {
    std::string name;
    bool isNumber = false;
};

// `itemName`: what the windows call the item's name; `keywords`: the item class's keyword fields,
// at most two; `withLines`: whether a table of lines refers to the entries.
TableShape EntryTableShape(std::string_view itemName, std::span<const KeywordField> keywords,
                           bool withLines);
TableShape LineTableShape();

// Makes the titles of a shape whose columns are complete known to FindColumn().
void IndexTitles(TableShape& shape);

// A title without blanks and line breaks, wide characters in their plain form: so titles are
// compared.
std::string PlainTitle(std::string_view title);

// The column of that title; null when the table has none.
const TableColumn* FindColumn(const TableShape& shape, std::string_view title);

}  // namespace kelvane::entries
