// Memory is measured in a program of its own: this one, started again for one list.
#pragma once

#include <string>

namespace kelvane::bench {

inline constexpr const char* kMemoryOption = "--memory-of=";

// Opens the list of `account` and writes how many bytes of memory the program uses while the list
// is shown, and used at most until then. Returns the exit status.
int WriteMemoryOf(const std::string& account);

// What the system says of this program under `name`, such as "VmHWM:", in bytes.
double StatusBytes(const std::string& name);

}  // namespace kelvane::bench
