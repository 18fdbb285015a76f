// Aggregates that are exact where the engine's own are not, and the check that a sub-query yields
// at most one row.
#pragma once

namespace kelvane::sqlite {

class Database;

// Throws DatabaseError.
void AddAggregates(Database& database);

}  // namespace kelvane::sqlite
