// The functions and types that an account on PostgreSQL has beside its tables: what the dialect
// does and the server's own functions do not. They lie in the account's schema, are made with its
// first table, and are built from the server's own parts alone, so that a dump of the schema holds
// everything.
#pragma once

#include <string>

namespace kelvane::odbc {

// The statements that make them, or make them anew, in the first schema of the search path. They
// are one text, fit to be sent in one call. An error that a function raises has the SQLSTATE KV000
// and a text that begins with the dialect's number of the error and a blank.
std::string PostgresFunctions();

}  // namespace kelvane::odbc
