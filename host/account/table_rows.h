// Rows on their way into a table of the account. Everything the host writes goes through here, by
// the same statements and the same connection that the component uses.
#pragma once

#include <string>
#include <vector>

#include "platform/database.h"
#include "platform/value.h"

namespace kelvane::host {

using Row = std::vector<platform::Value>;

struct TableRows {
    std::string table;
    std::vector<std::string> columns;
    std::vector<Row> rows;  // each with one value for every column
};

// Inserts one row into `columns` of `table`. Throws platform::DatabaseError, and
// platform::MalformedStatement for a text with an apostrophe.
void InsertRow(platform::Connection& connection, const std::string& table,
               const std::vector<std::string>& columns, const Row& row);

// Inserts all of them; opens no transaction. Throws as InsertRow() does.
void InsertRows(platform::Connection& connection, const TableRows& rows);

}  // namespace kelvane::host
