// A statement sent to a server by the driver manager alone, in the engine's own language: what a
// test has to do that no account ever does.
#pragma once

#include <string>

namespace kelvane::support {

// Connects, runs `statement` and leaves. Throws std::runtime_error with the driver's text.
void RunBare(const std::string& connectionString, const std::string& statement);

}  // namespace kelvane::support
