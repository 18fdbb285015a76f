#include "host/commands/usage.h"

#include <algorithm>
#include <numeric>
#include <set>

#include "host/commands/help_text.h"
#include "host/surroundings/translation.h"
#include "platform/ascii.h"

namespace kelvane::host {

namespace {

// How many letters have to be put right in `from` to get `to`.
std::size_t Mistakes(std::string_view from, std::string_view to) {
    std::vector<std::vector<std::size_t>> table(from.size() + 1,
                                                std::vector<std::size_t>(to.size() + 1));
    std::iota(table[0].begin(), table[0].end(), 0U);
    for (std::size_t i = 1; i <= from.size(); ++i) {
        table[i][0] = i;
        for (std::size_t j = 1; j <= to.size(); ++j) {
            const std::size_t wrong = from[i - 1] == to[j - 1] ? 0 : 1;
            table[i][j] =
                std::min({table[i - 1][j] + 1, table[i][j - 1] + 1, table[i - 1][j - 1] + wrong});
            const bool turned =
                i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1];
            if (turned) table[i][j] = std::min(table[i][j], table[i - 2][j - 2] + 1);
        }
    }
    return table[from.size()][to.size()];
}

bool BeginsLike(std::string_view name, std::string_view other) {
    constexpr std::size_t kTells = 4;  // "--to"
    return std::min(name.size(), other.size()) >= kTells &&
           (name.starts_with(other) || other.starts_with(name));
}

std::vector<std::string> CommandNames(const CLI::App& program) {
    std::vector<std::string> names;
    for (const CLI::App* command : program.get_subcommands({}))
        names.push_back(command->get_name());
    return names;
}

std::string Joined(const std::vector<std::string>& names) {
    std::string joined;
    for (const std::string& name : names) {
        if (!joined.empty()) joined += Translated(", ");
        joined += name;
    }
    return joined;
}

const CLI::App* CommandNamed(const CLI::App& program, const std::string& name) {
    for (const CLI::App* command : program.get_subcommands({})) {
        if (command->get_name() == name) return command;
    }
    return nullptr;
}

const CLI::Option* OptionNamed(const CLI::App& command, const std::string& name) {
    for (const CLI::Option* option : OptionsOf(command)) {
        if (option->check_name(name)) return option;
    }
    return nullptr;
}

std::string UnknownCommand(const CLI::App& program, const std::string& name) {
    const auto names = CommandNames(program);
    const std::string nearest = NearestName(name, names);
    return nearest.empty()
               ? Told("unknown command \"%1\"; the commands are %2", {name, Joined(names)})
               : Told("unknown command \"%1\"; did you mean \"%2\"?", {name, nearest});
}

std::string UnknownOption(const CLI::App& command, const std::string& name) {
    std::vector<std::string> names;
    for (const CLI::Option* option : OptionsOf(command)) {
        for (const std::string& known : option->get_lnames()) names.push_back("--" + known);
    }
    const std::string nearest = NearestName(name, names);
    return nearest.empty() ? Told("unknown option %1", {name})
                           : Told("unknown option %1; did you mean %2?", {name, nearest});
}

// What is wrong with the options of `command`, the arguments behind its name.
std::string WrongOptions(const CLI::App& command, std::span<const std::string> arguments) {
    std::set<const CLI::Option*> given;
    for (std::size_t at = 0; at < arguments.size(); ++at) {
        const std::string& argument = arguments[at];
        if (argument == "--") break;
        if (argument.size() < 2 || argument.front() != '-') continue;
        const bool isLong = argument[1] == '-';
        const std::size_t equals = isLong ? argument.find('=') : std::string::npos;
        const std::string name = argument.substr(0, equals);
        const CLI::Option* option = OptionNamed(command, name);
        if (option == nullptr) return UnknownOption(command, name);
        if (option == command.get_help_ptr()) break;
        if (!given.insert(option).second) return Told("%1 is given twice", {name});
        const bool takesValue = option->get_items_expected_max() > 0;
        if (!takesValue && equals != std::string::npos) return Told("%1 takes no value", {name});
        if (!takesValue || (equals != std::string::npos && equals + 1 < argument.size())) continue;
        if (++at == arguments.size()) return Told("%1 lacks its value", {name});
    }
    return {};
}

// The options of `command` that need another one which is not given; the first one, with it.
std::string LackingNeed(const CLI::App& command) {
    for (const CLI::Option* option : OptionsOf(command)) {
        for (const CLI::Option* need : option->get_needs()) {
            if (option->count() == 0 || need->count() != 0) continue;
            return Told("%1 needs %2", {option->get_name(), need->get_name()});
        }
    }
    return {};
}

// The first two options of `command` that cannot stand together.
std::string Clash(const CLI::App& command) {
    for (const CLI::Option* option : OptionsOf(command)) {
        for (const CLI::Option* other : option->get_excludes()) {
            if (option->count() == 0 || other->count() == 0) continue;
            return Told("only one of these can be given: %1",
                        {Joined({option->get_name(), other->get_name()})});
        }
    }
    return {};
}

std::string WhatIsMissing(const CLI::App& command) {
    for (const CLI::Option* option : OptionsOf(command)) {
        if (option->get_required() && option->count() == 0) {
            return Told("%1 is missing", {option->get_name()});
        }
    }
    const auto groups = GroupsOf(command);
    if (groups.empty()) return {};
    std::vector<std::string> names;
    for (const CLI::Option* option : groups.front()->get_options()) {
        names.push_back(option->get_name());
    }
    return Told(groups.front()->count_all() == 0
                    ? ToTranslate("one of these is missing: %1")
                    : ToTranslate("only one of these can be given: %1"),
                {Joined(names)});
}

}  // namespace

std::string NearestName(std::string_view name, std::span<const std::string> names) {
    const std::string typed = platform::LowerAscii(name);
    const std::size_t most = std::max<std::size_t>(1, typed.size() / 3);
    std::string nearest;
    std::size_t fewest = most + 1;
    for (const std::string& known : names) {
        const std::size_t mistakes = BeginsLike(typed, known) ? 1 : Mistakes(typed, known);
        if (mistakes >= fewest) continue;
        nearest = known;
        fewest = mistakes;
    }
    return nearest;
}

WrongUsage WrongNames(const CLI::App& program, std::span<const std::string> arguments) {
    for (std::size_t at = 0; at < arguments.size(); ++at) {
        const std::string& argument = arguments[at];
        if (argument.starts_with('-')) {
            if (OptionNamed(program, argument) != nullptr) break;
            return {UnknownOption(program, argument.substr(0, argument.find('='))), &program};
        }
        const CLI::App* command = CommandNamed(program, argument);
        if (command == nullptr) return {UnknownCommand(program, argument), &program};
        return {WrongOptions(*command, arguments.subspan(at + 1)), command};
    }
    return {{}, &program};
}

WrongUsage WrongUsageOf(const CLI::App& program, const CLI::ParseError& stopped) {
    if (program.get_subcommands().empty()) {
        return {Told("a command is missing: %1", {Joined(CommandNames(program))}), &program};
    }
    const CLI::App* command = program.get_subcommands().front();
    std::string reason;
    if (dynamic_cast<const CLI::RequiredError*>(&stopped) != nullptr) {
        reason = WhatIsMissing(*command);
    } else if (dynamic_cast<const CLI::RequiresError*>(&stopped) != nullptr) {
        reason = LackingNeed(*command);
    } else if (dynamic_cast<const CLI::ExcludesError*>(&stopped) != nullptr) {
        reason = Clash(*command);
    } else if (dynamic_cast<const CLI::ExtrasError*>(&stopped) != nullptr) {
        reason = Told("\"%1\" is one argument too many", {program.remaining(true).front()});
    }
    return {reason.empty() ? stopped.what() : reason, command};
}

}  // namespace kelvane::host
