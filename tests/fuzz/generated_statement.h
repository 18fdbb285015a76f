// Statements of the dialect that are well formed and whose outcome does not depend on the engine:
// values of exact arithmetic, and an order of the rows or none.
#pragma once

#include <string>

#include "tests/fuzz/fuzz.h"

namespace kelvane::fuzz {

struct GeneratedQuery {
    std::string text;
    // Whether the rows come in one order alone.
    bool ordered = false;
    // Whether one of several texts that compare as equal may come.
    bool anyOfEqualTexts = false;
};

// A select on Probe, Coded and Noted, the tests' tables; the input's numbers decide what is in it.
GeneratedQuery GenerateQuery(Bytes& input);

// Whether a text of the statement's may be one of several that compare as equal: the smallest or
// the greatest of them.
bool TakesOneOfMany(const std::string& statement);

// An insert, an update or a delete on Probe or Coded.
std::string GenerateChange(Bytes& input);

// A row of Probe or Coded whose key is `number`.
std::string GenerateRow(Bytes& input, int number);

}  // namespace kelvane::fuzz
