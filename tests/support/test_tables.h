// The tables of the tests' accounts.
#pragma once

#include <string>
#include <vector>

#include "adapters/tsql/language/table_description.h"

namespace kelvane::support {

// The component's tables, as its dictionary has them; fitemss97sub with the key columns `keyFields`
// of type "varchar(60)".
std::vector<tsql::TableDescription> ComponentTables(const std::vector<std::string>& keyFields = {});

// Those, with the key columns cKeyA and cKeyB (text) and iKeyN (int); the table Probe, which has a
// column of every type; Coded, whose key is a text; and Noted, with texts of any length.
std::vector<tsql::TableDescription> ProbingTables();

// The names of all tables that any test creates.
std::vector<std::string> KnownTables();

}  // namespace kelvane::support
