// The commands of a script that act on the topmost window.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/drive/script.h"
#include "adapters/drive/transcript.h"
#include "controls/form.h"

namespace kelvane::drive {

// What a window's commands need beside the window.
struct CommandSurroundings {
    Transcript& transcript;
    // The next choice in a list of so many rows; nothing when none is waiting or "none" was chosen.
    std::function<std::optional<std::size_t>(std::size_t rows)> choose;
    // Sends keys to the topmost window after the present command.
    std::function<void(std::string_view keys)> sendKeys;
    // The text on the clipboard of the windows.
    std::function<std::string()> clipboard;
    std::function<void(std::string_view text)> setClipboard;
};

// Does `command` to `form`, as the operator would. Throws ScriptError when it cannot be done there:
// no such cell, control or button, or no grid.
void RunInWindow(const Command& command, controls::Form& form,
                 const CommandSurroundings& surroundings);

}  // namespace kelvane::drive
