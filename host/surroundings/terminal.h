// The terminal the program was started from, and its environment.
#pragma once

#include <optional>
#include <string>

namespace kelvane::host {

// Shows `prompt` and reads a line that the terminal does not show. Nothing when standard input is
// no terminal, or when the line is ended by the end of input.
std::optional<std::string> AskPassword(const std::string& prompt);

// Removes a variable from what programs started from here on inherit.
void ForgetVariable(const char* name);

}  // namespace kelvane::host
