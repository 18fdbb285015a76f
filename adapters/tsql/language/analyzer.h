// Resolves the names of a statement against the catalog and gives every expression its type, so
// that a writer needs no more than the tree. Implicit conversions become nodes of the tree.
#pragma once

#include "adapters/tsql/language/catalog.h"
#include "adapters/tsql/language/syntax.h"

namespace kelvane::tsql {

// Throws DatabaseError: 208, 207, 209, 4104 for names, 8120 and others for what the dialect does
// not allow.
void Analyze(Statement& statement, Catalog& catalog);

}  // namespace kelvane::tsql
