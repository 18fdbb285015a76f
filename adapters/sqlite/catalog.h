// The account's tables with their dialect types, read from what their columns are declared as.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "adapters/tsql/language/catalog.h"

namespace kelvane::sqlite {

class Database;

class SqliteCatalog : public tsql::Catalog {
public:
    explicit SqliteCatalog(Database& database) : mDatabase(database) {}

    // Throws DatabaseError for a column whose declared type the dialect does not have.
    std::shared_ptr<const tsql::TableInfo> FindTable(std::string_view name) override;

    // Forgets what has been read, after the schema has changed.
    void Clear() { mTables.clear(); }
    bool IsEmpty() const { return mTables.empty(); }

private:
    std::shared_ptr<const tsql::TableInfo> Read(const std::string& name);

    Database& mDatabase;
    std::map<std::string, std::shared_ptr<const tsql::TableInfo>> mTables;  // by lower-case name
};

}  // namespace kelvane::sqlite
