// By what a file is known again, whatever its name: the SHA-256 of its bytes, in 64 lower-case
// hexadecimal digits.
#pragma once

#include <string>
#include <string_view>

namespace kelvane::journal {

std::string HashOfText(std::string_view bytes);

// Reads the file at `path` (UTF-8) piece by piece. Throws std::runtime_error, in Chinese, when it
// cannot be read.
std::string HashOfFile(const std::string& path);

}  // namespace kelvane::journal
