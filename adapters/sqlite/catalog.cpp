#include "adapters/sqlite/catalog.h"

#include <utility>

#include "adapters/sqlite/database.h"
#include "adapters/sqlite/statement.h"
#include "adapters/tsql/language/errors.h"
#include "platform/ascii.h"

namespace kelvane::sqlite {

namespace {

// "money text" declares money that the engine keeps as text.
tsql::Type DialectType(const std::string& table, const std::string& column,
                       const std::string& declared) {
    constexpr std::string_view kKeptAsText = " text";
    std::string_view name = declared;
    if (name.ends_with(kKeptAsText)) name.remove_suffix(kKeptAsText.size());
    if (const std::optional<tsql::Type> type = tsql::ParseType(name)) return *type;
    throw tsql::UnknownColumnType(table, column, declared);
}

}  // namespace

std::shared_ptr<const tsql::TableInfo> SqliteCatalog::FindTable(std::string_view name) {
    const std::string key = platform::LowerAscii(name);
    const auto known = mTables.find(key);
    if (known != mTables.end()) return known->second;
    std::shared_ptr<const tsql::TableInfo> table = Read(key);
    if (table) mTables.emplace(key, table);
    return table;
}

std::shared_ptr<const tsql::TableInfo> SqliteCatalog::Read(const std::string& name) {
    Statement statement(mDatabase,
                        "select m.name, c.name, c.type, c.\"notnull\", c.pk, "
                        "  (select count(*) from pragma_table_info(m.name) where pk > 0), "
                        "  exists (select 1 from sqlite_schema i where i.type = 'index' and "
                        "    i.tbl_name = m.name and i.sql like 'create unique %' and instr(i.sql, "
                        "    '(rtrim(\"' || c.name || '\") collate nocase)') > 0) "
                        "from sqlite_schema m join pragma_table_info(m.name) c "
                        "where m.type = 'table' and m.name = ?1 collate nocase "
                        "  and m.name not like 'sqlite\\_%' escape '\\' order by c.cid",
                        false);
    const tsql::Datum wanted = name;
    statement.Bind(1, wanted);
    auto table = std::make_shared<tsql::TableInfo>();
    int code = statement.Step();
    for (; code == SQLITE_ROW; code = statement.Step()) {
        table->name = statement.Text(0);
        const std::string declared = statement.Text(2);
        tsql::ColumnInfo column;
        column.name = statement.Text(1);
        column.type = DialectType(table->name, column.name, declared);
        column.isRowNumber = statement.Integer(4) > 0 && statement.Integer(5) == 1 &&
                             platform::EqualIgnoringCase(declared, "integer");
        column.isTextKey = statement.Integer(6) != 0;
        column.nullable = statement.Integer(3) == 0 && statement.Integer(4) == 0;
        table->columns.push_back(std::move(column));
    }
    if (code != SQLITE_DONE) mDatabase.Fail(code);
    return table->columns.empty() ? nullptr : table;
}

}  // namespace kelvane::sqlite
