// A check of the whole account: everything in it that the rules would not let in today, read in one
// snapshot and never repaired.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "entries/rules.h"

namespace kelvane::entries {

// A rule of the catalogue as the check's sheets and documents name it.
struct CheckRule {
    std::string_view id;
    bool warning;            // what is unusual; otherwise what is wrong
    std::string_view title;  // what it finds, in a few words
};

// In the order of the catalogue.
std::span<const CheckRule> CheckRules();

// A warning says what is unusual, an error what is wrong.
bool IsWarning(Rule rule);

struct CheckFinding {
    // Of the entry; of lines without one the identity they name; 0: of no entry.
    std::int64_t identity = 0;
    std::string title;  // of the column; empty: the whole entry
    Finding finding;    // its text names the codes and both amounts
};

struct CheckResult {
    std::size_t entries = 0;
    std::size_t errors = 0;
    std::size_t warnings = 0;
    std::vector<CheckFinding> findings;  // by identity, then in the order of the catalogue
};

// Checks all entries and lines of the account, for the login context as the windows have it. Over
// gConn in one snapshot, with a number of statements that does not depend on the number of entries,
// and gEnv's calendar. Throws platform::DatabaseError and its kin.
CheckResult CheckAccount();

// How findings are shown, in windows and sheets alike: identity, level, rule, column, text.
std::vector<std::string> CheckTitles();
std::vector<std::string> CheckTexts(const CheckFinding& finding);

}  // namespace kelvane::entries
