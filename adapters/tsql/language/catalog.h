// What a translation asks about the account's tables.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/tsql/language/type.h"

namespace kelvane::tsql {

struct ColumnInfo {
    std::string name;
    Type type;
    bool nullable = true;
    // The target engine numbers the rows by this column and would fill in a Null by itself.
    bool isRowNumber = false;
    // A text that is its table's whole key: the target engine finds a row by it.
    bool isTextKey = false;
};

struct TableInfo {
    std::string name;
    std::vector<ColumnInfo> columns;
    // Where an engine has no row number of its own: the column that identifies a row and stands for
    // the order in which the rows came. It may be one that `columns` does not list.
    std::string rowColumn = {};

    // The column of that name in any letter case; null when there is none.
    const ColumnInfo* Find(std::string_view column) const;
};

class Catalog {
public:
    virtual ~Catalog() = default;
    // The table of that name in any letter case; null when there is none.
    virtual std::shared_ptr<const TableInfo> FindTable(std::string_view name) = 0;
};

}  // namespace kelvane::tsql
