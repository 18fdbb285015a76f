// What is wrong with a command line, said in words: which name is unknown and which one may have
// been meant, what is missing, what is too much.
#pragma once

#include <CLI/CLI.hpp>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kelvane::host {

struct WrongUsage {
    std::string reason;  // empty: nothing is wrong
    // Whose --help tells more: the command, or the program when there is none.
    const CLI::App* command;
};

// Looks at the names of commands and options alone: unknown ones, options without their value, with
// one too many or given twice. `arguments`: those behind the program's name.
WrongUsage WrongNames(const CLI::App& program, std::span<const std::string> arguments);

// What made the reader of `program`'s arguments stop.
WrongUsage WrongUsageOf(const CLI::App& program, const CLI::ParseError& stopped);

// The one of `names` that `name` is most like, by letters that are wrong, missing, too many or
// changed about, and by beginning like it. Empty when it is like none.
std::string NearestName(std::string_view name, std::span<const std::string> names);

}  // namespace kelvane::host
