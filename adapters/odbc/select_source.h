// What a query of the dialect says of the rows it returns, without asking the server: the one table
// they come from and what they were chosen by.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelvane::odbc {

struct SelectSource {
    std::string table;
    std::string condition;  // behind "where", as written; empty: all rows
    // The table's columns by the result's place, an empty one for what is computed; nothing at all
    // for "select *".
    std::vector<std::string> columns;
    std::string conditionColumn;  // one that the condition speaks of; may be empty
    bool holdsLock = false;       // a HOLDLOCK hint
};

struct BatchReading {
    bool onlyQueries = false;
    // Of a batch that is one query whose rows are one table's rows.
    std::optional<SelectSource> source;
};

// Reads a batch. One that this program does not understand is no error: it may change, and has no
// source.
BatchReading ReadBatch(std::string_view batch);

}  // namespace kelvane::odbc
