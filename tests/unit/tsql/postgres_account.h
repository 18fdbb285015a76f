// The component's tables as PostgreSQL's catalog describes them, and writing statements for it.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "adapters/tsql/language/catalog.h"
#include "adapters/tsql/postgres/postgres_definition.h"
#include "adapters/tsql/postgres/postgres_writer.h"
#include "data/account_tables.h"
#include "platform/ascii.h"

namespace kelvane::tsql {

class PostgresAccount : public Catalog {
public:
    PostgresAccount() {
        for (const data::AccountTable& known : data::AccountTables()) {
            TableInfo& table = Add(std::string(known.name));
            for (const data::AccountColumn& column : known.columns) {
                const bool key = column.role == data::ColumnRole::Key;
                AddColumn(table, column.name, column.type, !key);
                if (key && column.type == "int") table.rowColumn = column.name;
            }
        }
        TableInfo& keys = *mTables.at("fitemss97sub");
        AddColumn(keys, "cKeyA", data::kItemKeyType, true);
        AddColumn(keys, "iKeyN", "int", true);
        TableInfo& probe = Add("Probe");
        for (const auto& [name, type] : {std::pair("id", "int"),
                                         {"c", "varchar(10)"},
                                         {"n", "nvarchar(10)"},
                                         {"i", "int"},
                                         {"b", "bit"},
                                         {"t", "tinyint"},
                                         {"m", "money"},
                                         {"f", "float"},
                                         {"d", "datetime"}}) {
            AddColumn(probe, name, type, true);
        }
    }

    std::shared_ptr<const TableInfo> FindTable(std::string_view name) override {
        const auto found = mTables.find(platform::LowerAscii(name));
        return found == mTables.end() ? nullptr : found->second;
    }

private:
    TableInfo& Add(const std::string& name) {
        auto& table = mTables[platform::LowerAscii(name)];
        table = std::make_shared<TableInfo>();
        table->name = name;
        table->rowColumn = kPostgresRowColumn;
        return *table;
    }

    static void AddColumn(TableInfo& table, std::string_view name, std::string_view type,
                          bool nullable) {
        ColumnInfo column;
        column.name = name;
        column.type = *ParseType(type);
        column.nullable = nullable;
        table.columns.push_back(std::move(column));
    }

    std::map<std::string, std::shared_ptr<TableInfo>> mTables;
};

// The batch's statements with their values, one a line; the text of what refuses it.
inline std::string ForPostgres(std::string_view batch, bool changeable = false,
                               RowLocks locks = {}) {
    PostgresAccount account;
    PostgresWriter writer(locks);
    LexedText text;
    std::string result;
    try {
        Lex(batch, text);
        for (const auto& statement : Translate(text, account, writer, changeable).statements) {
            if (!result.empty()) result += '\n';
            result += statement.error ? statement.error->what()
                                      : FilledForPostgres(statement.translated, text.literals);
        }
    } catch (const DatabaseError& error) {
        return error.what();
    }
    return result;
}

}  // namespace kelvane::tsql
