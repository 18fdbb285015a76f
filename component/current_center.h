// What a host that brings the usual pick lists has to know of the open entry list.
#pragma once

#include <string>

namespace kelvane::component {

// The code of the duty centre whose items are to be chosen from: that of the row, or of the find
// dialog, whose pick list opens at the moment. Empty when there is none.
std::string CurrentCenter();

}  // namespace kelvane::component
