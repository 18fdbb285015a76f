// Printing and writing to files for a composition of the component.
#pragma once

#include "platform/print_surroundings.h"
#include "platform/services.h"

namespace kelvane::host {

// Adds the print services to `services`, whose windows are there already; an XML document that is
// there stays. `surroundings` outlives the services or these are withdrawn before.
void OfferPrinting(platform::Services& services, platform::PrintSurroundings& surroundings);

// Takes them away again; the commands that need them are disabled.
void WithdrawPrinting(platform::Services& services);

}  // namespace kelvane::host
