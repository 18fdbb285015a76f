// A statement sent to a server by the driver manager alone, in the engine's own language: what a
// test has to do that no account ever does.
#pragma once

#include <string>

namespace kelvane::support {

// Connects, runs `statement` and leaves; returns the first field of its first row, empty when it
// has none. Throws std::runtime_error with the driver's text.
std::string RunBare(const std::string& connectionString, const std::string& statement);

}  // namespace kelvane::support
