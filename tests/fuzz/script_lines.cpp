// Any text as an operator script's lines: each is a command or is refused, and a command written
// with all its texts in quotes is read as the same.
#include "adapters/drive/script.h"
#include "platform/key_names.h"

#include "tests/fuzz/fuzz.h"

using namespace kelvane;
using fuzz::Require;

namespace {

template <typename Read>
void ReadOrRefused(const Read& read) {
    try {
        read();
    } catch (const drive::ScriptError&) {
    }
}

std::string InQuotes(const std::string& text) {
    std::string quoted = "\"";
    for (const char c : text) {
        quoted += c;
        if (c == '"') quoted += c;
    }
    return quoted + '"';
}

// The verb is the line's first word.
std::string Rewritten(const std::string& line, const drive::Command& command) {
    const std::size_t begin = line.find_first_not_of(" \t");
    const std::size_t end = line.find_first_of(" \t\r\"", begin);
    std::string text = line.substr(begin, end == std::string::npos ? end : end - begin);
    for (const std::string& argument : command.arguments) text += ' ' + InQuotes(argument);
    return text;
}

void TryLine(const std::string& line) {
    std::optional<drive::Command> command;
    ReadOrRefused([&] { command = drive::ParseCommand(line); });
    if (!command) return;
    for (const std::string& argument : command->arguments) {
        ReadOrRefused([&] { drive::ParseNumber(argument); });
        ReadOrRefused([&] { drive::ParseYesNo(argument); });
        platform::FindKey(argument);
        platform::ParseSentKeys(argument);
    }
    if (command->verb == drive::Verb::Init) {
        ReadOrRefused([&] { drive::ParseInitOptions(command->arguments); });
    }
    std::optional<drive::Command> again;
    ReadOrRefused([&] { again = drive::ParseCommand(Rewritten(line, *command)); });
    Require(again && again->verb == command->verb && again->arguments == command->arguments,
            "a command in quotes is the same command", Rewritten(line, *command));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    fuzz::Bytes input(bytes, size);
    while (!input.AtEnd()) TryLine(input.Line());
    return 0;
}
