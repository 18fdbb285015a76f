// What an account's schema may hold. The engine runs a schema's code by itself, in the middle of
// our statements, so an account holds none: plain tables, indexes on their columns, and views that
// stand beside them.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace kelvane::sqlite {

class Database;

// One row of the schema, as it is stored: the file's writer may have put anything there.
struct StoredDefinition {
    std::string type;
    std::string name;
    std::string table;
    std::string text;
};

// What forbids the definition, in Chinese, with the object's and its table's name; nothing when it
// may be there. `tables`: the names that no view may have.
std::optional<std::string> ForbiddenPart(const StoredDefinition& definition,
                                         const std::vector<std::string>& tables);

// Reads the whole schema and runs nothing of it. Throws DatabaseError naming the first definition
// that may not be there.
void RequirePlainDefinitions(Database& database, const std::vector<std::string>& tables);

}  // namespace kelvane::sqlite
