// Operator scripts as text: what a line of one says. What the commands do is elsewhere.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/date_time.h"

namespace kelvane::drive {

// A line that cannot be read, or a command that cannot be done where it stands.
class ScriptError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

enum class Verb {
    Init,
    Show,
    Go,
    Edit,
    Type,
    Key,
    Ref,
    Drop,
    Pick,
    Answer,
    Clipboard,
    File,
    Click,
    Press,
    Set,
    Resize,
    Title,
    Menu,
    Close,
    Skip,
    Print,
};

struct Command {
    Verb verb = Verb::Show;
    std::vector<std::string> arguments;
};

// Reads one line: its command, or nothing for a blank line and for a comment (";" or "#" first).
// The number of arguments is right. Throws ScriptError for an unknown command, for wrong arguments
// and for a quoted text that does not end.
std::optional<Command> ParseCommand(std::string_view line);

// The login that "init" asks for; what is not given is the account's own.
struct InitOptions {
    std::optional<std::string> user;
    std::optional<bool> exempt;
    std::optional<int> year;
    std::optional<platform::DateTime> today;
};

// Reads the arguments of "init": user=U, exempt=yes|no, year=Y, today=yyyy.mm.dd, in any order.
// Throws ScriptError.
InitOptions ParseInitOptions(const std::vector<std::string>& arguments);

// A whole number from 0. Throws ScriptError.
int ParseNumber(std::string_view text);

// "yes" or "no". Throws ScriptError.
bool ParseYesNo(std::string_view text);

}  // namespace kelvane::drive
