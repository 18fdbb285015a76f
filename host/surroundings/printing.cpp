#include "host/surroundings/printing.h"

#include <utility>

#include "adapters/output/printing.h"
#include "data/login_context.h"
#include "host/surroundings/private_files.h"
#include "platform/native_path.h"

namespace kelvane::host {

void OfferPrinting(platform::Services& services, platform::PrintSurroundings& surroundings) {
    output::OfferPrinting(services, surroundings,
                          [](std::string_view place, std::string_view reason) {
                              data::ReportTrapped(place, reason);
                          });
    services.createPrintControl = [make = std::move(services.createPrintControl)] {
        // Where print settings are saved. When it cannot be made, saving them says so.
        MakePrivateFolder(platform::PathOf(platform::NativePath(data::gPrintStylePath)));
        return make();
    };
}

void WithdrawPrinting(platform::Services& services) {
    services.createPrintControl = nullptr;
    services.createPrintStyle = nullptr;
}

}  // namespace kelvane::host
