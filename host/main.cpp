// The program "kelvane".

#include "host/commands/command_line.h"

int main(int argc, char** argv) {
    return kelvane::host::RunCommandLine(argc, argv);
}
