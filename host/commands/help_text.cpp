#include "host/commands/help_text.h"

#include "host/surroundings/columns.h"
#include "host/surroundings/translation.h"
#include "platform/utf8.h"

namespace kelvane::host {

namespace {

constexpr std::size_t kIndent = 2;
constexpr std::size_t kTextColumn = 30;
constexpr std::size_t kColumns = 80;

// Such a character stands behind the one before it.
bool ClosesText(char32_t character) {
    constexpr std::u32string_view kClosing = U"，。；：、）”！？";
    return kClosing.find(character) != std::u32string_view::npos;
}

std::string Entry(const std::string& name, const std::string& text) {
    std::string entry = std::string(kIndent, ' ') + name;
    std::size_t column = entry.size();
    if (column + 1 > kTextColumn) {
        entry += '\n';
        column = 0;
    }
    for (const std::string& line : WrappedLines(text, kColumns - kTextColumn)) {
        entry += std::string(kTextColumn - column, ' ') + line + '\n';
        column = 0;
    }
    return entry;
}

bool IsFlag(const CLI::Option& option) {
    return option.get_items_expected_max() == 0;
}

// With what stands behind it: "--to FILE".
std::string NameOf(const CLI::Option& option) {
    if (option.get_positional()) return option.get_name(true, false);
    const std::string name = option.get_name(false, true);
    return IsFlag(option) ? name : name + ' ' + option.get_type_name();
}

std::string EntryOf(const CLI::Option& option) {
    const std::string& text = option.get_description();
    const std::string usual = option.get_default_str();
    return Entry(NameOf(option), usual.empty() ? text : Told("%1; %2 if not given", {text, usual}));
}

// One line for each way to name the account.
std::string Usage(const CLI::App& command, const std::string& name) {
    std::string begins = name + " [" + Translated("OPTIONS") + "]";
    std::string behind;
    for (const CLI::Option* option : command.get_options()) {
        if (option->get_required()) {
            (option->get_positional() ? behind : begins) += ' ' + NameOf(*option);
        }
    }
    std::vector<std::string> ends;
    for (const CLI::App* group : GroupsOf(command)) {
        for (const CLI::Option* option : group->get_options()) ends.push_back(NameOf(*option));
    }
    if (ends.empty()) ends.emplace_back(Translated("COMMAND"));
    const std::string label = Translated("Usage: ");
    std::string usage;
    for (const std::string& end : ends) {
        usage += usage.empty() ? label : std::string(ColumnsOf(label), ' ');
        usage += begins;
        usage += ' ' + end + behind + '\n';
    }
    return usage;
}

std::string Commands(const CLI::App& program) {
    std::string commands;
    for (const CLI::App* command : program.get_subcommands({})) {
        if (command->get_name().empty()) continue;
        commands += Entry(command->get_name(), command->get_description());
    }
    if (commands.empty()) return {};
    return std::string("\n") + Translated("Commands:") + '\n' + commands + '\n' +
           Told("\"%1\" tells a command's own options.", {"kelvane COMMAND --help"}) + '\n';
}

}  // namespace

std::vector<const CLI::App*> GroupsOf(const CLI::App& command) {
    return command.get_subcommands([](const CLI::App* each) { return each->get_name().empty(); });
}

std::vector<const CLI::Option*> OptionsOf(const CLI::App& command) {
    auto options = command.get_options();
    for (const CLI::App* group : GroupsOf(command)) {
        for (const CLI::Option* option : group->get_options()) options.push_back(option);
    }
    return options;
}

std::vector<std::string> WrappedLines(std::string_view text, std::size_t width) {
    std::vector<std::string> lines(1);
    std::size_t used = 0;
    std::string piece;  // what cannot be broken
    std::size_t pieceWidth = 0;
    bool blankBefore = false;
    const auto place = [&] {
        const std::size_t blank = blankBefore && used > 0 ? 1 : 0;
        if (used > 0 && used + blank + pieceWidth > width) {
            lines.emplace_back();
            used = 0;
        } else {
            lines.back().append(blank, ' ');
            used += blank;
        }
        lines.back() += piece;
        used += pieceWidth;
        piece.clear();
        pieceWidth = 0;
        blankBefore = false;
    };
    bool wideBefore = false;
    while (!text.empty()) {
        const std::string_view rest = text;
        const auto character = platform::TakeCharacter(text);
        if (character.value == ' ') {
            if (!piece.empty()) place();
            blankBefore = true;
            continue;
        }
        const bool wide = IsWide(character.value);
        if (!piece.empty() && (wide || wideBefore) && !ClosesText(character.value)) place();
        piece += rest.substr(0, character.length);
        pieceWidth += wide ? 2 : 1;
        wideBefore = wide;
    }
    if (!piece.empty()) place();
    return lines;
}

std::string HelpText::make_help(const CLI::App* command, std::string name,
                                CLI::AppFormatMode /*mode*/) const {
    std::string own;
    std::vector<const CLI::Option*> grouped;
    const std::string& ownGroup = command->get_help_ptr()->get_group();
    for (const CLI::Option* option : command->get_options()) {
        if (option->get_group() != ownGroup) {
            grouped.push_back(option);
        } else if (option != command->get_help_ptr()) {
            own += EntryOf(*option);
        }
    }
    own += EntryOf(*command->get_help_ptr());
    std::string help = command->get_description() + '\n' + Usage(*command, name) + '\n' +
                       Translated("Options:") + '\n' + own;
    for (const CLI::App* group : GroupsOf(*command)) {
        help += '\n' + Told("%1:", {Translated(group->get_group().c_str())}) + '\n';
        for (const CLI::Option* option : group->get_options()) help += EntryOf(*option);
        for (const CLI::Option* option : grouped) {
            if (option->get_group() == group->get_group()) help += EntryOf(*option);
        }
    }
    return help + Commands(*command);
}

}  // namespace kelvane::host
