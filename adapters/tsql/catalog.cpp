#include "adapters/tsql/catalog.h"

#include "adapters/tsql/ascii.h"

namespace kelvane::tsql {

const ColumnInfo* TableInfo::Find(std::string_view column) const {
    for (const ColumnInfo& candidate : columns) {
        if (EqualIgnoringCase(candidate.name, column)) return &candidate;
    }
    return nullptr;
}

}  // namespace kelvane::tsql
