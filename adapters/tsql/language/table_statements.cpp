#include "adapters/tsql/language/table_statements.h"

#include <algorithm>
#include <stdexcept>

#include "adapters/tsql/language/type.h"
#include "platform/ascii.h"

namespace kelvane::tsql {

namespace {

using platform::StatementText;

void AppendType(StatementText& text, const std::string& declared) {
    const std::optional<Type> type = ParseType(declared);
    if (!type) throw std::invalid_argument("no type of the dialect: " + declared);
    const bool anyLength = type->IsText() && type->length == 0;
    if (anyLength) {
        text.Identifier(type->kind == Type::Kind::NVarChar ? "ntext" : "text");
        return;
    }
    text.Identifier(TypeName(*type));
    if (type->IsText()) {
        text << "(";
        text.Number(type->length) << ")";
    }
}

void AppendNames(StatementText& text, const std::vector<std::string>& names) {
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (i != 0) text << ",";
        text.Name(names[i]);
    }
}

bool IsKey(const TableDescription& table, std::string_view column) {
    return std::ranges::any_of(table.key, [&](const std::string& key) {
        return platform::EqualIgnoringCase(key, column);
    });
}

StatementText CreateTable(const TableDescription& table) {
    StatementText text("create table ");
    text.Name(table.name) << "(";
    for (const ColumnDescription& column : table.columns) {
        if (&column != &table.columns.front()) text << ",";
        text.Name(column.name) << " ";
        AppendType(text, column.type);
        const bool nullable = column.nullable && !IsKey(table, column.name);
        if (nullable) {
            text << " null";
        } else {
            text << " not null";
        }
    }
    if (!table.key.empty()) {
        text << ",primary key(";
        AppendNames(text, table.key);
        text << ")";
    }
    return text << ")";
}

StatementText CreateIndex(const TableDescription& table, const std::vector<std::string>& columns) {
    std::string name = table.name;
    for (const std::string& column : columns) name += '_' + column;
    StatementText text("create index ");
    text.Name(name + "_index") << " on ";
    text.Name(table.name) << "(";
    AppendNames(text, columns);
    return text << ")";
}

}  // namespace

std::vector<StatementText> CreateStatements(const TableDescription& table) {
    std::vector<StatementText> statements{CreateTable(table)};
    for (const auto& columns : table.indexes) statements.push_back(CreateIndex(table, columns));
    return statements;
}

StatementText DropStatement(const std::string& table) {
    StatementText text("drop table ");
    text.Name(table);
    return text;
}

}  // namespace kelvane::tsql
