// How many objects of this module live: it cannot be unloaded before all are gone.
#pragma once

namespace kelvane::automation {

void ObjectMade();
void ObjectGone();
bool HasObjects();

}  // namespace kelvane::automation
