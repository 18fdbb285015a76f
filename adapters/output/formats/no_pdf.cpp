// A system without a library that writes PDF: its own printing does that.

#include "adapters/output/files/named_files.h"
#include "adapters/output/formats/table_export.h"

namespace kelvane::output {

FormatWriter PdfWriter() {
    return nullptr;
}

std::unique_ptr<platform::PrintSurroundings> PrintWithoutScreen(FileChooser chooseFile) {
    return std::make_unique<NamedFiles>(std::move(chooseFile));
}

}  // namespace kelvane::output
