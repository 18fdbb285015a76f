// The program "kelvane" on Windows: texts are UTF-8 outside as they are inside, and lines end as
// they do elsewhere.

#include <fcntl.h>
#include <io.h>

#include <string>
#include <vector>

#include "adapters/com/wide_text.h"
#include "host/commands/command_line.h"

int wmain(int argc, wchar_t** argv) {
    // What is loaded by its name alone comes from the system, never from the present folder. A
    // library that is named with its folder, such as a database's driver, finds its own beside it.
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
    SetConsoleOutputCP(CP_UTF8);
    for (FILE* stream : {stdin, stdout}) _setmode(_fileno(stream), _O_BINARY);
    std::vector<std::string> texts;
    for (int i = 0; i < argc; ++i) texts.push_back(kelvane::com::NarrowText(argv[i]));
    std::vector<char*> arguments;
    for (std::string& text : texts) arguments.push_back(text.data());
    arguments.push_back(nullptr);
    return kelvane::host::RunCommandLine(argc, arguments.data());
}
