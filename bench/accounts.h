// The accounts that are measured: sample accounts of a given size, made once in a run.
#pragma once

#include <cstdint>
#include <string>

namespace kelvane::bench {

// The path of a sample account with that many entries. It lies in a folder of this run's own, below
// the folder for temporary files, which is removed when the program ends. Throws
// host::CreationError.
std::string AccountWith(std::int64_t entries);

// The same, and nobody has written to it yet.
std::string NewAccountWith(std::int64_t entries);

}  // namespace kelvane::bench
