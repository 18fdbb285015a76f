#include "host/account/table_rows.h"

#include <stdexcept>

#include "platform/statement_text.h"

namespace kelvane::host {

namespace {

using platform::StatementText;
using platform::Value;

void AppendValue(StatementText& statement, const Value& value) {
    if (value.IsNull()) {
        statement << "null";
    } else if (const auto* number = value.As<std::int64_t>()) {
        statement.Number(*number);
    } else if (const auto* amount = value.As<platform::Money>()) {
        statement.Amount(*amount);
    } else if (const auto* real = value.As<double>()) {
        statement.Double(*real);
    } else if (const auto* date = value.As<platform::DateTime>()) {
        statement << "'";
        statement.Inside(date->FullText()) << "'";
    } else {
        statement << "'";
        statement.Inside(*value.As<std::string>()) << "'";
    }
}

}  // namespace

void InsertRow(platform::Connection& connection, const std::string& table,
               const std::vector<std::string>& columns, const Row& row) {
    if (row.size() != columns.size()) {
        throw std::logic_error("a row of " + table + " has not one value for every column");
    }
    StatementText statement("insert into ");
    statement.Name(table) << "(";
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (i != 0) statement << ",";
        statement.Name(columns[i]);
    }
    statement << ") values (";
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (i != 0) statement << ",";
        AppendValue(statement, row[i]);
    }
    statement << ")";
    connection.Execute(statement);
}

void InsertRows(platform::Connection& connection, const TableRows& rows) {
    for (const Row& row : rows.rows) InsertRow(connection, rows.table, rows.columns, row);
}

}  // namespace kelvane::host
