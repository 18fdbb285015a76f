#include "adapters/drive/script.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace kelvane::drive {

namespace {

// How a command is written. A command with a text takes the rest of the line as its last argument.
struct Syntax {
    std::string_view name;
    Verb verb;
    std::size_t leastWords;
    std::size_t mostWords;
    bool text;
    std::string_view usage;
};

constexpr std::array kSyntaxes{
    Syntax{"init", Verb::Init, 0, 4, false,
           "init [user=U] [exempt=yes|no] [year=Y] [today=yyyy.mm.dd]"},
    Syntax{"show", Verb::Show, 0, 0, false, "show"},
    Syntax{"go", Verb::Go, 2, 2, false, "go R|entry=ID C"},
    Syntax{"edit", Verb::Edit, 0, 0, true, "edit TEXT"},
    Syntax{"type", Verb::Type, 0, 0, true, "type TEXT"},
    Syntax{"key", Verb::Key, 1, 1, false, "key NAME"},
    Syntax{"ref", Verb::Ref, 0, 0, false, "ref"},
    Syntax{"drop", Verb::Drop, 0, 1, false, "drop [NAME]"},
    Syntax{"pick", Verb::Pick, 1, 1, false, "pick N|none"},
    Syntax{"answer", Verb::Answer, 1, 1, false, "answer yes|no"},
    Syntax{"clipboard", Verb::Clipboard, 0, 0, true, "clipboard TEXT"},
    Syntax{"file", Verb::File, 0, 0, true, "file PATH|none"},
    Syntax{"click", Verb::Click, 1, 1, false, "click KEY"},
    Syntax{"press", Verb::Press, 1, 1, false, "press NAME"},
    Syntax{"set", Verb::Set, 1, 1, true, "set NAME TEXT"},
    Syntax{"resize", Verb::Resize, 2, 2, false, "resize C TWIPS"},
    Syntax{"title", Verb::Title, 1, 1, false, "title C"},
    Syntax{"menu", Verb::Menu, 0, 1, false, "menu [CAPTION]"},
    Syntax{"close", Verb::Close, 0, 0, false, "close"},
    Syntax{"skip", Verb::Skip, 1, 1, false, "skip sql"},
    Syntax{"print", Verb::Print, 1, 1, false, "print grid|toolbar|window|line|page|clipboard|sql"},
};

constexpr std::string_view kBlanks = " \t";

std::string_view Trim(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(kBlanks);
    if (begin == std::string_view::npos) return {};
    return text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1);
}

// Takes the quoted text that `rest` begins with; a doubled quote inside stands for one.
std::string TakeQuoted(std::string_view& rest) {
    std::string text;
    for (std::size_t at = 1; at < rest.size(); ++at) {
        if (rest[at] != '"') {
            text += rest[at];
        } else if (at + 1 < rest.size() && rest[at + 1] == '"') {
            text += rest[at++];
        } else {
            rest.remove_prefix(at + 1);
            return text;
        }
    }
    throw ScriptError("a text in double quotes does not end");
}

// Takes the next word; parts of it may stand in quotes (user="U V").
std::string TakeWord(std::string_view& rest) {
    std::string word;
    while (!rest.empty() && kBlanks.find(rest.front()) == std::string_view::npos) {
        if (rest.front() == '"') {
            word += TakeQuoted(rest);
        } else {
            word += rest.front();
            rest.remove_prefix(1);
        }
    }
    rest = Trim(rest);
    return word;
}

// The rest of a line as one text, quoted or as it stands.
std::string TakeText(std::string_view& rest) {
    std::string text;
    if (rest.starts_with('"')) {
        text = TakeQuoted(rest);
        rest = Trim(rest);
    } else {
        text = rest;
        rest = {};
    }
    return text;
}

}  // namespace

std::optional<Command> ParseCommand(std::string_view line) {
    std::string_view rest = Trim(line);
    if (rest.empty() || rest.front() == ';' || rest.front() == '#') return std::nullopt;

    const std::string name = TakeWord(rest);
    const auto* syntax = std::find_if(kSyntaxes.begin(), kSyntaxes.end(),
                                      [&](const Syntax& each) { return each.name == name; });
    if (syntax == kSyntaxes.end()) throw ScriptError("unknown command \"" + name + "\"");

    const ScriptError wrong("wrong arguments, write: " + std::string(syntax->usage));
    Command command{syntax->verb, {}};
    while (!rest.empty() && command.arguments.size() < syntax->mostWords) {
        command.arguments.push_back(TakeWord(rest));
    }
    if (command.arguments.size() < syntax->leastWords) throw wrong;
    if (syntax->text) {
        if (rest.empty()) throw wrong;
        command.arguments.push_back(TakeText(rest));
    }
    if (!rest.empty()) throw wrong;
    return command;
}

int ParseNumber(std::string_view text) {
    int number = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop != end || number < 0) {
        throw ScriptError("\"" + std::string(text) + "\" is not a number");
    }
    return number;
}

bool ParseYesNo(std::string_view text) {
    if (text == "yes") return true;
    if (text == "no") return false;
    throw ScriptError("\"" + std::string(text) + "\" is neither yes nor no");
}

InitOptions ParseInitOptions(const std::vector<std::string>& arguments) {
    InitOptions options;
    for (const std::string& argument : arguments) {
        const std::size_t equals = argument.find('=');
        const std::string name = argument.substr(0, equals);
        const std::string value =
            equals == std::string::npos ? std::string() : argument.substr(equals + 1);
        if (name == "user" && !value.empty()) {
            options.user = value;
        } else if (name == "exempt") {
            options.exempt = ParseYesNo(value);
        } else if (name == "year") {
            options.year = ParseNumber(value);
        } else if (name == "today") {
            platform::DateTime today;
            if (!platform::DateTime::Parse(value, today)) {
                throw ScriptError("\"" + value + "\" is not a date");
            }
            options.today = today;
        } else {
            throw ScriptError("init does not know \"" + argument + "\"");
        }
    }
    return options;
}

}  // namespace kelvane::drive
