// The program itself, run as a user runs it.
#pragma once

#include <sys/wait.h>

#include <cstdlib>
#include <string>

#include "tests/unit/host/temporary_folder.h"

namespace kelvane::host_test {

struct ProgramResult {
    int status;
    std::string output;
    std::string errors;
};

inline std::string ShellQuoted(const std::string& text) {
    std::string quoted = "'";
    for (const char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

// Runs the program with `arguments` (as a shell reads them) and `input` on standard input.
// `environment`: assignments to stand before the program's name. It speaks English without any.
inline ProgramResult RunProgram(const std::string& arguments, const std::string& input = {},
                                const std::string& environment = {}) {
    const TemporaryFolder folder;
    WriteText(folder / "input", input);
    const std::string command = "LANGUAGE=C " + environment + " " + ShellQuoted(KELVANE_PROGRAM) +
                                " " + arguments + " < " + (folder / "input").string() + " > " +
                                (folder / "output").string() + " 2> " +
                                (folder / "errors").string();
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadText(folder / "output"),
            ReadText(folder / "errors")};
}

}  // namespace kelvane::host_test
