// The real window is measured in a program of its own: this one, started again for one list.
#pragma once

#include <string>

namespace kelvane::bench {

inline constexpr const char* kWindowOption = "--window-of=";

// Opens the list of `account` on the screen and writes, in seconds: from the loaded list to the
// painted rows; and a frame's time, that 19 of 20 frames keep, while the list is paged through by
// its scroll bar, and by the Page Down key with every row that is left checked and saved. Returns
// the exit status.
int WriteTimesOfWindow(const std::string& account);

}  // namespace kelvane::bench
