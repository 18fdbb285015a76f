// The account's tables as the server's own catalog describes them, read once in a connection and
// again when a table or column is missing.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "adapters/odbc/engine_dialect.h"
#include "adapters/tsql/language/catalog.h"

namespace kelvane::odbc {

class PostgresCatalog : public tsql::Catalog {
public:
    // What FindTable() asks while `channel` lives; the catalog belongs to one connection at a time.
    void Use(Channel& channel) { mChannel = &channel; }

    // Throws DatabaseError (2715) for a table with a column whose type the dialect does not have.
    std::shared_ptr<const tsql::TableInfo> FindTable(std::string_view name) override;

    void Clear() { mTables.clear(); }
    bool IsEmpty() const { return mTables.empty(); }

    // The table that the index, which a message of the server names, belongs to; empty when there
    // is none.
    std::string TableOfIndex(std::string_view index) const;

private:
    struct Known {
        std::shared_ptr<tsql::TableInfo> table;
        std::string unknownColumn;  // with a type that the dialect does not have
        std::string unknownType;
    };

    void Read();

    Channel* mChannel = nullptr;
    std::map<std::string, Known> mTables;  // by lower-case name
    std::map<std::string, std::string, std::less<>> mIndexes;
};

}  // namespace kelvane::odbc
