// The windows for one Show in a host's process, worked by the person at the screen. There are two
// of each routine here, and a component has one of them: that of person_show.cpp, or that of
// driven_show.cpp for tests, where an operator script may act in the person's place. What is
// delivered cannot be driven.
#pragma once

#include <functional>

#include "adapters/drive/statement_log.h"
#include "platform/print_surroundings.h"
#include "platform/windows.h"

namespace kelvane::host {

// Whether a script acts in the person's place.
bool IsDriven();

// What is done while there are windows. Printing and the file dialog are the person's; a script
// names the files and has no printer.
using WindowsWork =
    std::function<void(platform::Windows& windows, platform::PrintSurroundings& printing)>;

// Starts the windows, disables the host's own, does `work` and undoes both. `statements`: for
// "print sql" of a script; may be null. Throws what `work` throws, and std::runtime_error when
// there are no windows, or a file of the script's cannot be opened.
void RunWindows(drive::StatementLog* statements, const WindowsWork& work);

// The same for the person at the screen.
void RunForPerson(const WindowsWork& work);

}  // namespace kelvane::host
