// FilePrinting: surroundings without a printer and without a screen. What is printed becomes a PDF
// file, and the operator's files come from whoever stands in for the operator.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "adapters/output/disk.h"
#include "platform/print_surroundings.h"

namespace kelvane::output {

class FilePrinting : public platform::PrintSurroundings {
public:
    using FileChooser =
        std::function<std::optional<std::string>(const platform::FileQuestion& question)>;

    // `disk` outlives the surroundings.
    explicit FilePrinting(FileChooser chooseFile, Disk& disk = SystemDisk())
        : mChooseFile(std::move(chooseFile)), mDisk(disk) {}

    std::optional<std::string> ChooseFile(const platform::FileQuestion& question) override {
        return mChooseFile(question);
    }
    // Writes the pages to a PDF file that the operator names. Throws FileFailure.
    bool PrintPages(const platform::PageSource& pages) override;
    std::unique_ptr<platform::Progress> StartProgress(const std::string& /*title*/) override {
        return nullptr;
    }

private:
    FileChooser mChooseFile;
    Disk& mDisk;
};

}  // namespace kelvane::output
