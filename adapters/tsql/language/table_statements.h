// The dialect's own statements that create and drop a table. They use plain "create table" and
// "create index" alone, so that every server that speaks the dialect runs them.
#pragma once

#include <string>
#include <vector>

#include "adapters/tsql/language/table_description.h"
#include "platform/statement_text.h"

namespace kelvane::tsql {

// "create table …(…, primary key(…))" and one "create index" for each of its indexes. Key columns
// never take Null. Throws std::invalid_argument for a type that the dialect's tables do not have;
// a name that is none makes its statement malformed.
std::vector<platform::StatementText> CreateStatements(const TableDescription& table);

platform::StatementText DropStatement(const std::string& table);

}  // namespace kelvane::tsql
