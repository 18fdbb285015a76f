// The terminal the program was started from.
#pragma once

#include <string>

#include "adapters/database/secret.h"

namespace kelvane::host {

// Whether somebody sees what is written to standard error while it is.
bool ErrorsAreSeen();

// Shows `prompt` and reads a line that the terminal does not show. Null when standard input is no
// terminal, or when the line is ended by the end of input.
database::SharedSecret AskPassword(const std::string& prompt);

}  // namespace kelvane::host
