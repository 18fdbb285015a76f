// The windows for one Show in a host's process, worked by the person at the screen or, where the
// environment asks for it, by an operator script.
#pragma once

#include <functional>

#include "adapters/drive/statement_log.h"
#include "platform/print_surroundings.h"
#include "platform/windows.h"

namespace kelvane::host {

// Whether the environment variable KELVANE_DRIVE names a script.
bool IsDriven();

// What is done while there are windows. Printing and the file dialog are the person's; a script
// names the files and has no printer.
using WindowsWork =
    std::function<void(platform::Windows& windows, platform::PrintSurroundings& printing)>;

// Starts the windows, disables the host's own, does `work` and undoes both. With a script
// (KELVANE_DRIVE) that acts in the person's place, what happens is appended to the file
// KELVANE_TRANSCRIPT, and the window at the script's end is saved to KELVANE_SCREENSHOT.
// `statements`: for "print sql"; may be null. Throws what `work` throws, and std::runtime_error
// when a file cannot be opened or there are no windows.
void RunWindows(drive::StatementLog* statements, const WindowsWork& work);

}  // namespace kelvane::host
