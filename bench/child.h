// What can only be measured once in a program, or only in a fresh one, is measured in this program
// started again with an option of its own; it answers with numbers on its standard output.
#pragma once

#include <string>
#include <vector>

namespace kelvane::bench {

// The numbers that this program writes for `option`, such as "--memory-of=", with `value`. Throws
// std::runtime_error unless there are `count`.
std::vector<double> AskChild(const std::string& option, const std::string& value,
                             std::size_t count);

}  // namespace kelvane::bench
