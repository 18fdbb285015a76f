// Writing the list to files is also measured in a program of its own, for the memory it takes.
#pragma once

#include <string>

namespace kelvane::bench {

inline constexpr const char* kExportOption = "--memory-of-export=";

// Writes the list of an account to a file, `fileAndAccount` being "FILE:ACCOUNT", and then how many
// bytes of memory the program used at most. Returns the exit status.
int WriteMemoryOfExport(const std::string& fileAndAccount);

}  // namespace kelvane::bench
