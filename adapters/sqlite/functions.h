// What the translated statements need beyond the engine's own functions. They exist on our
// connections alone; nothing stored in an account refers to them.
#pragma once

namespace kelvane::sqlite {

class Database;

// Adds the functions and the collation that tsql::SqliteWriter names. An error that one of them
// meets becomes the statement's error. Throws DatabaseError.
void AddFunctions(Database& database);

}  // namespace kelvane::sqlite
