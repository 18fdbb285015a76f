#include "tests/support/test_tables.h"

#include "data/account_tables.h"
#include "host/account/host_tables.h"

namespace kelvane::support {

using tsql::TableDescription;

std::vector<TableDescription> ComponentTables(const std::vector<std::string>& keyFields) {
    std::vector<TableDescription> tables;
    for (const auto& table : data::AccountTables()) {
        auto& description = tables.emplace_back(host::Describe(table));
        if (table.name != data::kItemKeyTable) continue;
        for (const auto& field : keyFields) {
            description.columns.push_back({field, std::string(data::kItemKeyType)});
        }
    }
    return tables;
}

std::vector<TableDescription> ProbingTables() {
    auto tables = ComponentTables({"cKeyA", "cKeyB"});
    for (auto& table : tables) {
        if (table.name == data::kItemKeyTable) table.columns.push_back({"iKeyN", "int"});
    }
    tables.push_back({"Probe",
                      {{"id", "int", false},
                       {"c", "varchar(10)"},
                       {"n", "nvarchar(10)"},
                       {"i", "int"},
                       {"t", "tinyint"},
                       {"s", "smallint"},
                       {"b", "bit"},
                       {"m", "money"},
                       {"f", "float"},
                       {"d", "datetime"}},
                      {"id"},
                      {}});
    tables.push_back(
        {"Coded", {{"code", "varchar(20)"}, {"name", "varchar(40)", false}}, {"code"}, {{"name"}}});
    tables.push_back(
        {"Noted", {{"id", "int", false}, {"plain", "text"}, {"wide", "ntext"}}, {"id"}, {}});
    return tables;
}

std::vector<std::string> KnownTables() {
    std::vector<std::string> names;
    for (const auto& table : ProbingTables()) names.push_back(table.name);
    for (const auto& table : host::HostTables()) names.push_back(table.name);
    return names;
}

}  // namespace kelvane::support
