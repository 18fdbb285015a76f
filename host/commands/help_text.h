// What --help says: how the command is used with its arguments, its own options, and then how the
// account is named, which is the same in every command.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace kelvane::host {

class HelpText : public CLI::FormatterBase {
public:
    std::string make_help(const CLI::App* command, std::string name,
                          CLI::AppFormatMode mode) const override;
};

// The options of a command, those of its groups included.
std::vector<const CLI::Option*> OptionsOf(const CLI::App& command);
// Its groups of options.
std::vector<const CLI::App*> GroupsOf(const CLI::App& command);

// Breaks `text` into lines of at most `width` columns, of which a wide character takes two. A line
// ends at a blank, which is left out, or between two wide characters; what is longer stays whole.
std::vector<std::string> WrappedLines(std::string_view text, std::size_t width);

}  // namespace kelvane::host
