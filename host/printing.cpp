// Printing in a build with it.

#include "host/printing.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "adapters/output/file_printing.h"
#include "adapters/output/output_print_control.h"
#include "adapters/output/style_service.h"
#include "adapters/output/xml_text_document.h"
#include "data/login_context.h"
#include "platform/native_path.h"

namespace kelvane::host {

void OfferPrinting(platform::Services& services, platform::PrintSurroundings& surroundings) {
    services.createPrintControl = [windows = services.windows, &surroundings] {
        // Where print settings are saved. When it cannot be made, saving them says so.
        std::error_code refused;
        std::filesystem::create_directories(platform::NativePath(data::gPrintStylePath), refused);
        return std::make_unique<output::OutputPrintControl>(output::PrintEnvironment{
            .windows = *windows,
            .surroundings = surroundings,
            .failed = [](std::string_view place,
                         std::string_view reason) { data::ReportTrapped(place, reason); },
        });
    };
    services.createPrintStyle = [] { return std::make_unique<output::StyleService>(); };
    services.createXmlDocument = [] { return std::make_unique<output::XmlTextDocument>(); };
}

std::unique_ptr<platform::PrintSurroundings> FilesInstead(
    std::function<std::optional<std::string>(const platform::FileQuestion&)> choose) {
    return std::make_unique<output::FilePrinting>(std::move(choose));
}

}  // namespace kelvane::host
