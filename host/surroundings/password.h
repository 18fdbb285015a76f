// Passwords on their way into the program: where they come from, and what hides them afterwards.
#pragma once

#include <string>
#include <vector>

#include "adapters/database/secret.h"

namespace kelvane::host {

// The arguments behind the program's name. Those that hold a password are overwritten in `argv`,
// which is where the system's list of processes takes them from.
std::vector<std::string> TakeArguments(int argc, char** argv);

// Takes the environment variable KELVANE_DATABASE_PASSWORD out of the environment, for
// PasswordFor(). To be called before anything else, whatever the program is to do.
void TakePasswordVariable();

// The password for a connection string that names an operator without one: what
// TakePasswordVariable() found or, when it found none, what is typed at the terminal, if standard
// input is one. Null when none is lacking or none is known.
database::SharedSecret PasswordFor(const std::string& connectionString);

}  // namespace kelvane::host
