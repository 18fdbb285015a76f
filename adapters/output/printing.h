// Preview, printing and writing to files for a host's composition of the component, without the
// classes they are made of.
#pragma once

#include <functional>
#include <string_view>

#include "platform/print_surroundings.h"
#include "platform/services.h"

namespace kelvane::output {

// Told where something failed while it was printed or written, and why; nothing else is said of it.
using FailureReport = std::function<void(std::string_view place, std::string_view reason)>;

// Adds the print services to `services`, whose windows are there already; an XML document that is
// there stays. `surroundings` outlives the services. `failed` may be empty.
void OfferPrinting(platform::Services& services, platform::PrintSurroundings& surroundings,
                   FailureReport failed);

}  // namespace kelvane::output
