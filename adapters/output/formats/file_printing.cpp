#include "adapters/output/formats/file_printing.h"

#include "adapters/output/formats/pdf_writer.h"

namespace kelvane::output {

bool FilePrinting::PrintPages(const platform::PageSource& pages) {
    const auto path = ChooseFile({"打印到文件", pages.Title() + ".pdf", {{"PDF 文档", "pdf"}}});
    if (!path) return false;
    SafeFile file(*path, mDisk);
    WorkMeter meter(nullptr, {}, static_cast<std::size_t>(pages.PageCount()));
    WritePdf(pages, file, meter);
    file.Finish();
    return true;
}

}  // namespace kelvane::output
