#include "adapters/odbc/postgres_catalog.h"

#include "adapters/tsql/language/errors.h"
#include "adapters/tsql/postgres/postgres_definition.h"
#include "platform/ascii.h"

namespace kelvane::odbc {

namespace {

// Tables and columns; a text's length in atttypmod includes four bytes of its own.
constexpr const char* kColumns =
    "select c.relname::text, a.attname::text, t.typname::text, "
    "case when t.typname = 'varchar' and a.atttypmod > 4 then a.atttypmod - 4 else 0 end, "
    "case when a.attnotnull then 1 else 0 end, "
    "case when exists (select 1 from pg_catalog.pg_index i where i.indrelid = c.oid and "
    "i.indisprimary and i.indnkeyatts = 1 and i.indkey[0] = a.attnum) then 1 else 0 end "
    "from pg_catalog.pg_class c join pg_catalog.pg_attribute a on a.attrelid = c.oid "
    "join pg_catalog.pg_type t on t.oid = a.atttypid "
    "where c.relkind in ('r', 'p') and c.relnamespace = "
    "(select oid from pg_catalog.pg_namespace where nspname = current_schema()) "
    "and a.attnum > 0 and not a.attisdropped order by c.relname, a.attnum";

constexpr const char* kIndexes =
    "select i.relname::text, c.relname::text from pg_catalog.pg_index x "
    "join pg_catalog.pg_class i on i.oid = x.indexrelid "
    "join pg_catalog.pg_class c on c.oid = x.indrelid where c.relnamespace = "
    "(select oid from pg_catalog.pg_namespace where nspname = current_schema())";

std::string Text(const ResultRows& rows, std::size_t row, int column) {
    return rows.ValueAt(row, column).ToText();
}

std::int64_t Number(const ResultRows& rows, std::size_t row, int column) {
    return rows.ValueAt(row, column).ToInteger();
}

}  // namespace

void PostgresCatalog::Read() {
    mTables.clear();
    mIndexes.clear();
    const ResultRows rows = mChannel->Run(kColumns);
    for (std::size_t row = 0; row < rows.RowCount(); ++row) {
        const std::string name = Text(rows, row, 0);
        Known& known = mTables[platform::LowerAscii(name)];
        if (!known.table) {
            known.table = std::make_shared<tsql::TableInfo>();
            known.table->name = name;
        }
        tsql::ColumnInfo column;
        column.name = Text(rows, row, 1);
        if (column.name == tsql::kPostgresRowColumn) {
            known.table->rowColumn = column.name;
            continue;
        }
        const std::string type = Text(rows, row, 2);
        const auto length = static_cast<int>(Number(rows, row, 3));
        if (const auto found = tsql::TypeFromPostgres(type, length)) {
            column.type = *found;
        } else if (known.unknownType.empty()) {
            known.unknownColumn = column.name;
            known.unknownType = type;
        }
        column.nullable = Number(rows, row, 4) == 0;
        const bool isKey = Number(rows, row, 5) != 0;
        if (isKey && column.type.IsInteger()) known.table->rowColumn = column.name;
        known.table->columns.push_back(std::move(column));
    }
    const ResultRows indexes = mChannel->Run(kIndexes);
    for (std::size_t row = 0; row < indexes.RowCount(); ++row) {
        mIndexes[Text(indexes, row, 0)] = Text(indexes, row, 1);
    }
}

std::shared_ptr<const tsql::TableInfo> PostgresCatalog::FindTable(std::string_view name) {
    const std::string key = platform::LowerAscii(name);
    auto found = mTables.find(key);
    if (found == mTables.end()) {
        Read();
        found = mTables.find(key);
        if (found == mTables.end()) return nullptr;
    }
    const Known& known = found->second;
    if (known.unknownType.empty()) return known.table;
    throw tsql::UnknownColumnType(known.table->name, known.unknownColumn, known.unknownType);
}

std::string PostgresCatalog::TableOfIndex(std::string_view index) const {
    const auto found = mIndexes.find(index);
    return found == mIndexes.end() ? std::string() : found->second;
}

}  // namespace kelvane::odbc
