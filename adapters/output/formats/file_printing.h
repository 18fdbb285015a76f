// FilePrinting: surroundings without a printer and without a screen. What is printed becomes a PDF
// file.
#pragma once

#include <utility>

#include "adapters/output/files/disk.h"
#include "adapters/output/files/named_files.h"

namespace kelvane::output {

class FilePrinting : public NamedFiles {
public:
    // `disk` outlives the surroundings.
    explicit FilePrinting(FileChooser chooseFile, Disk& disk = SystemDisk())
        : NamedFiles(std::move(chooseFile)), mDisk(disk) {}

    // Writes the pages to a PDF file that the operator names. Throws FileFailure.
    bool PrintPages(const platform::PageSource& pages) override;

private:
    Disk& mDisk;
};

}  // namespace kelvane::output
