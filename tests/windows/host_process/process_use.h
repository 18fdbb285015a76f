// What this process holds of the system, to be compared before and after.
#pragma once

#include "adapters/com/com_headers.h"

namespace kelvane::windows_test {

struct ProcessUse {
    unsigned handles = 0;
    unsigned drawingObjects = 0;
    unsigned windows = 0;
    unsigned threads = 0;
    std::size_t bytes = 0;  // of memory in use

    static ProcessUse Now();
};

// How many of the window classes known to the system are `module`'s.
int WindowClasses(HMODULE module);

}  // namespace kelvane::windows_test
