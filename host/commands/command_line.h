// The program's command line.
#pragma once

namespace kelvane::host {

// Reads the command line and runs its command. Returns the program's exit status: that of the
// command, 2 for wrong usage, 0 when help or the version was asked for.
int RunCommandLine(int argc, char** argv);

}  // namespace kelvane::host
