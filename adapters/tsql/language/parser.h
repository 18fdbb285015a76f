// Builds the syntax trees of a batch: statements that follow each other without separators.
#pragma once

#include <vector>

#include "adapters/tsql/language/syntax.h"
#include "adapters/tsql/language/token_reader.h"

namespace kelvane::tsql {

// Reads all statements up to the end. Throws DatabaseError: 102 for what the dialect does not know
// either, kNotTranslated with its name for what only this translation does not.
std::vector<Statement> ParseBatch(TokenReader& reader);

// Reads a value or a condition from the current token on.
ExpressionPtr ParseExpression(TokenReader& reader);

// Reads a select from behind its first word.
std::unique_ptr<Select> ParseSelect(TokenReader& reader);

}  // namespace kelvane::tsql
