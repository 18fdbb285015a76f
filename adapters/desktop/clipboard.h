// The system's clipboard, as far as the windows use it: plain text, UTF-8.
#pragma once

#include <string>

namespace kelvane::desktop {

// Another program may hold the clipboard at the moment; it then stays as it is.
void WriteClipboard(const std::string& text);
// Empty when there is no text on it.
std::string ReadClipboard();
// Hands what was written over to the system, for the time after the program.
void KeepClipboard();

}  // namespace kelvane::desktop
