// Memory that runs out: one allocation of the program is refused, the others are not.
#pragma once

namespace kelvane::faults {

// The `number`-th allocation from now on is refused; from 1.
void RefuseAllocation(long number);

// No allocation is refused from here on. Returns whether one was.
bool GiveMemory();

}  // namespace kelvane::faults
