// A database on a server as a test's place.
#pragma once

#include <memory>
#include <string>

#include "tests/support/test_place.h"

namespace kelvane::support {

// A database of its own beside the one that `connectionString` names on a PostgreSQL server; it is
// the object's alone, and empty at first.
std::unique_ptr<TestPlace> MakePostgresPlace(const std::string& connectionString);

// The database that `connectionString` names, emptied. Throws std::runtime_error when it holds
// anything that the tests have not put there.
std::unique_ptr<TestPlace> MakeServerPlace(const std::string& connectionString);

// The keyword's value in the connection string replaced by `value`.
std::string WithKeyword(const std::string& connectionString, const std::string& keyword,
                        const std::string& value);

}  // namespace kelvane::support
