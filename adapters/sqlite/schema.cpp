#include "adapters/sqlite/schema.h"

#include <algorithm>
#include <stdexcept>

#include "adapters/tsql/language/type.h"
#include "adapters/tsql/sqlite/sqlite_name.h"
#include "platform/ascii.h"

namespace kelvane::sqlite {

namespace {

using platform::EqualIgnoringCase;
using Kind = tsql::Type::Kind;

tsql::Type TypeOf(std::string_view text) {
    const std::optional<tsql::Type> type = tsql::ParseType(text);
    if (!type) throw std::invalid_argument("no type an account can store: " + std::string(text));
    return *type;
}

const ColumnDescription& ColumnOf(const TableDescription& table, std::string_view name) {
    for (const ColumnDescription& column : table.columns) {
        if (EqualIgnoringCase(column.name, name)) return column;
    }
    throw std::invalid_argument("table " + table.name + " has no column " + std::string(name));
}

bool IsKey(const TableDescription& table, std::string_view name) {
    return std::any_of(table.key.begin(), table.key.end(),
                       [&](const std::string& key) { return EqualIgnoringCase(key, name); });
}

// A single int key is the table's row number in SQLite, which makes looking it up one search.
bool IsRowNumber(const TableDescription& table, const ColumnDescription& column) {
    return table.key.size() == 1 && IsKey(table, column.name) &&
           TypeOf(column.type).kind == Kind::Int;
}

std::string CreateTable(const TableDescription& table) {
    std::string text = "create table " + tsql::QuotedForSqlite(table.name) + "(";
    for (const ColumnDescription& column : table.columns) {
        if (&column != &table.columns.front()) text += ", ";
        text += tsql::QuotedForSqlite(column.name) + ' ';
        if (IsRowNumber(table, column)) {
            text += "integer primary key not null";
            continue;
        }
        text += DeclaredType(column.type);
        if (!column.nullable || IsKey(table, column.name)) text += " not null";
    }
    return text + ")";
}

std::string CreateIndex(const TableDescription& table, const std::vector<std::string>& columns,
                        bool unique) {
    std::string name = table.name;
    std::string list;
    for (const std::string& wanted : columns) {
        const ColumnDescription& column = ColumnOf(table, wanted);
        name += '_' + column.name;
        if (!list.empty()) list += ", ";
        const std::string quoted = tsql::QuotedForSqlite(column.name);
        list += TypeOf(column.type).IsText() ? "rtrim(" + quoted + ") collate nocase" : quoted;
    }
    return std::string("create ") + (unique ? "unique " : "") + "index " +
           tsql::QuotedForSqlite(name + (unique ? "_key" : "_index")) + " on " +
           tsql::QuotedForSqlite(table.name) + '(' + list + ')';
}

}  // namespace

std::string DeclaredType(std::string_view type) {
    const tsql::Type parsed = TypeOf(type);
    const std::string name(tsql::TypeName(parsed));
    if (parsed.IsText()) {
        const std::string length =
            parsed.length == 0 ? "" : '(' + std::to_string(parsed.length) + ')';
        return name + length + " collate nocase";
    }
    const bool storedAsText = parsed.kind == Kind::Money || parsed.kind == Kind::DateTime;
    return storedAsText ? name + " text" : name;
}

std::vector<std::string> CreateStatements(const TableDescription& table) {
    std::vector<std::string> statements{CreateTable(table)};
    const bool keyIsRowNumber =
        !table.key.empty() && IsRowNumber(table, ColumnOf(table, table.key.front()));
    if (!table.key.empty() && !keyIsRowNumber) {
        statements.push_back(CreateIndex(table, table.key, true));
    }
    for (const std::vector<std::string>& index : table.indexes) {
        statements.push_back(CreateIndex(table, index, false));
    }
    return statements;
}

}  // namespace kelvane::sqlite
