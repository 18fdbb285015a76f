// A check of the whole account: everything in it that the rules would not let in today, read in one
// snapshot and never repaired.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "entries/rules.h"

namespace kelvane::entries {

// A warning says what is unusual, an error what is wrong.
bool IsWarning(Rule rule);

struct CheckFinding {
    std::int32_t identity = 0;  // of the entry; of lines without one the identity they name
    Finding finding;            // its text names the codes and both amounts
};

struct CheckResult {
    std::size_t entries = 0;
    std::size_t errors = 0;
    std::size_t warnings = 0;
    std::vector<CheckFinding> findings;  // by identity, then in the order of the catalogue
};

// Checks all entries and lines of the account. Over gConn and gEnv, with a number of statements
// that does not depend on the number of entries. Throws platform::DatabaseError and its kin.
CheckResult CheckAccount();

}  // namespace kelvane::entries
