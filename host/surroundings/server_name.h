// What a database on a server is called where an operator reads it.
#pragma once

#include <string>
#include <string_view>

namespace kelvane::host {

// What an ODBC connection string connects to: "DATABASE on SERVER", or whichever of database,
// server and data source name it has; "database" when it has none.
std::string ServerNameOf(std::string_view connectionString);

}  // namespace kelvane::host
