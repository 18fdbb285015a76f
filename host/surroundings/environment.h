// What the program was started with and shall not go on showing to others.
#pragma once

#include "adapters/database/secret.h"

namespace kelvane::host {

// Takes a variable out of the environment: its value is overwritten where the system shows it, and
// no program that is started from here on inherits it. Null when it is not set.
database::SharedSecret TakeVariable(const char* name);

// From here on the system writes no core file of this process and lets no other one of the same
// user look into it, as far as it can be told to.
void KeepMemoryPrivate();

}  // namespace kelvane::host
