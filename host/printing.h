// Printing and writing to files, as far as this build has them.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/print_surroundings.h"
#include "platform/services.h"

namespace kelvane::host {

// Adds the print services to `services`, whose windows are there already. `surroundings` outlives
// them. Without printing in this build nothing is added, and the commands that need it are
// disabled.
void OfferPrinting(platform::Services& services, platform::PrintSurroundings& surroundings);

// Surroundings without a screen: `choose` names the file that is asked for, and what is printed
// becomes a PDF file. Null without printing in this build.
std::unique_ptr<platform::PrintSurroundings> FilesInstead(
    std::function<std::optional<std::string>(const platform::FileQuestion&)> choose);

}  // namespace kelvane::host
