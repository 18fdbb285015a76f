#include "adapters/output/printing.h"

#include <memory>
#include <utility>

#include "adapters/output/formats/xml_text_document.h"
#include "adapters/output/output_print_control.h"
#include "adapters/output/style/style_service.h"

namespace kelvane::output {

void OfferPrinting(platform::Services& services, platform::PrintSurroundings& surroundings,
                   FailureReport failed) {
    services.createPrintControl = [windows = services.windows, &surroundings,
                                   failed = std::move(failed)] {
        return std::make_unique<OutputPrintControl>(
            PrintEnvironment{.windows = *windows, .surroundings = surroundings, .failed = failed});
    };
    services.createPrintStyle = [] { return std::make_unique<StyleService>(); };
    if (services.createXmlDocument) return;
    services.createXmlDocument = [] { return std::make_unique<XmlTextDocument>(); };
}

}  // namespace kelvane::output
