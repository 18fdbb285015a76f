#include "adapters/tsql/language/catalog.h"

#include "platform/ascii.h"

namespace kelvane::tsql {

const ColumnInfo* TableInfo::Find(std::string_view column) const {
    for (const ColumnInfo& candidate : columns) {
        if (platform::EqualIgnoringCase(candidate.name, column)) return &candidate;
    }
    return nullptr;
}

}  // namespace kelvane::tsql
