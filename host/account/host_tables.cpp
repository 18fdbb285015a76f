#include "host/account/host_tables.h"

#include <string>

#include "host/account/item_class.h"

namespace kelvane::host {

using tsql::TableDescription;

TableDescription Describe(const data::AccountTable& table) {
    TableDescription description;
    description.name = table.name;
    for (const auto& column : table.columns) {
        const bool isKey = column.role == data::ColumnRole::Key;
        description.columns.push_back({std::string(column.name), std::string(column.type), !isKey});
        if (isKey) description.key.emplace_back(column.name);
    }
    for (const auto& index : table.indexes) {
        auto& columns = description.indexes.emplace_back();
        for (const auto name : index) {
            if (!name.empty()) columns.emplace_back(name);
        }
    }
    return description;
}

std::vector<TableDescription> HostTables() {
    return {
        {"Host_Unit", {{"cUnitName", "varchar(255)", false}}, {}, {}},
        {"Host_Operator",
         {{"cUserID", "varchar(60)", false},
          {"cName", "varchar(255)", false},
          {"bExempt", "bit", false}},
         {"cUserID"},
         {}},
        {"Host_Period",
         {{"iYear", "smallint", false},
          {"iPeriod", "tinyint", false},
          {"dStart", "datetime", false},
          {"dEnd", "datetime", false}},
         {"iYear", "iPeriod"},
         {}},
        {"Host_Setting",
         {{"cModule", "varchar(60)", false},
          {"cName", "varchar(60)", false},
          {"cValue", "varchar(255)", true}},
         {"cModule", "cName"},
         {}},
    };
}

std::vector<TableDescription> AccountTables(int keyFields) {
    auto tables = HostTables();
    for (const auto& table : data::AccountTables()) {
        auto& description = tables.emplace_back(Describe(table));
        if (table.name != data::kItemKeyTable) continue;
        for (const auto& field : ItemKeyFields(keyFields)) {
            description.columns.push_back(
                {std::string(field.name), std::string(field.columnType), true});
        }
    }
    return tables;
}

}  // namespace kelvane::host
