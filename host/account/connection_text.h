// What the host reads in an ODBC connection string, and what it must never show of one.
#pragma once

#include <string>
#include <string_view>

namespace kelvane::host {

// Whether the string names an operator of the server (UID) but no password (PWD).
bool LacksPassword(std::string_view connectionString);

// The string with `password` as its PWD, in braces, so that any character may stand in it.
std::string WithPassword(std::string_view connectionString, std::string_view password);

// What the string connects to, for messages: "DATABASE on SERVER", or whichever of database,
// server and data source name it has; "database" when it has none.
std::string ServerNameOf(std::string_view connectionString);

// Whether a password stands in `text`, wherever in it.
bool HoldsPassword(std::string_view text);
// `text` with "***" in place of every password that stands in it as in a connection string.
std::string WithoutPasswords(std::string_view text);

}  // namespace kelvane::host
