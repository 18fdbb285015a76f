// The clock on the wall.
#pragma once

#include "platform/date_time.h"

namespace kelvane::host {

// The present moment in the machine's time zone, to the millisecond.
platform::DateTime LocalNow();

}  // namespace kelvane::host
