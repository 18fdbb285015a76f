#include "host/surroundings/printing.h"

#include <filesystem>
#include <memory>
#include <system_error>

#include "adapters/output/formats/xml_text_document.h"
#include "adapters/output/output_print_control.h"
#include "adapters/output/style/style_service.h"
#include "data/login_context.h"
#include "platform/native_path.h"

namespace kelvane::host {

void OfferPrinting(platform::Services& services, platform::PrintSurroundings& surroundings) {
    services.createPrintControl = [windows = services.windows, &surroundings] {
        // Where print settings are saved. When it cannot be made, saving them says so.
        std::error_code refused;
        std::filesystem::create_directories(
            platform::PathOf(platform::NativePath(data::gPrintStylePath)), refused);
        return std::make_unique<output::OutputPrintControl>(output::PrintEnvironment{
            .windows = *windows,
            .surroundings = surroundings,
            .failed = [](std::string_view place,
                         std::string_view reason) { data::ReportTrapped(place, reason); },
        });
    };
    services.createPrintStyle = [] { return std::make_unique<output::StyleService>(); };
    if (services.createXmlDocument) return;
    services.createXmlDocument = [] { return std::make_unique<output::XmlTextDocument>(); };
}

void WithdrawPrinting(platform::Services& services) {
    services.createPrintControl = nullptr;
    services.createPrintStyle = nullptr;
}

}  // namespace kelvane::host
