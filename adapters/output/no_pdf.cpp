// A system without a library that writes PDF: its own printing does that.

#include "adapters/output/named_files.h"
#include "adapters/output/table_export.h"

namespace kelvane::output {

FormatWriter PdfWriter() {
    return nullptr;
}

std::unique_ptr<platform::PrintSurroundings> PrintWithoutScreen(FileChooser chooseFile) {
    return std::make_unique<NamedFiles>(std::move(chooseFile));
}

}  // namespace kelvane::output
