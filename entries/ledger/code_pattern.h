// The patterns of a mapping: a code itself, "12*" for every code that begins so, "*" for any code.
#pragma once

#include <string>
#include <string_view>

#include "entries/ledger/tie_out.h"

namespace kelvane::entries {

// An account of the ledger as it is compared: without the blanks of any kind at its ends, by which
// ledgers show the levels.
std::string AccountOf(std::string_view cell);

// A cell of a mapping as a pattern: without blanks at its ends, "*" where it is blank, a wide "＊"
// in its plain form.
std::string PatternOf(std::string_view cell);

// Whether a pattern can be understood: "*" stands at its end or nowhere.
bool IsPattern(std::string_view pattern);

// Whether `pattern` stands for `code`, compared as the account compares codes.
bool Covers(std::string_view pattern, std::string_view code);

// Whether every code that `narrow` stands for is one of `wide`.
bool CoversAll(std::string_view wide, std::string_view narrow);

// The same of the three patterns of a line: no entry gets past `earlier` to `later`.
bool CoversAll(const MappedAccount& earlier, const MappedAccount& later);

}  // namespace kelvane::entries
