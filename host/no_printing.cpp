// Printing in a build without it.

#include "host/commands.h"
#include "host/printing.h"

namespace kelvane::host {

void OfferPrinting(platform::Services& /*services*/,
                   platform::PrintSurroundings& /*surroundings*/) {}

std::unique_ptr<platform::PrintSurroundings> FilesInstead(
    std::function<std::optional<std::string>(const platform::FileQuestion&)> /*choose*/) {
    return nullptr;
}

int RunExport(const ExportArguments& /*arguments*/) {
    return Fail("this build writes no files");
}

}  // namespace kelvane::host
