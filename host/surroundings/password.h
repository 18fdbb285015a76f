// Passwords on their way into the program: where they come from, and what hides them afterwards.
#pragma once

#include <string>
#include <vector>

namespace kelvane::host {

// The arguments behind the program's name. Those that hold a password are overwritten in `argv`,
// which is where the system's list of processes takes them from.
std::vector<std::string> TakeArguments(int argc, char** argv);

// `connectionString` with its password. One that names an operator without a password gets it from
// the environment variable KELVANE_DATABASE_PASSWORD, which is removed so that no other program
// inherits it, or, when that is not set, from the terminal, if standard input is one.
std::string WithKnownPassword(const std::string& connectionString);

}  // namespace kelvane::host
