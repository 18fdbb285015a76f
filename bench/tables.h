// How much memory the reading of a workbook takes is measured in a program of its own: this one,
// started again for one file.
#pragma once

#include <string>

namespace kelvane::bench {

inline constexpr const char* kTableOption = "--memory-of-table=";

// Reads the first sheet of the workbook `file` and writes how many bytes of memory the program used
// at most, and how many cells there were. Returns the exit status.
int WriteMemoryOfTable(const std::string& file);

}  // namespace kelvane::bench
