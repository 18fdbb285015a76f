// Surroundings without a screen: the operator's files come from whoever stands in for the operator.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

#include "platform/print_surroundings.h"

namespace kelvane::output {

using FileChooser =
    std::function<std::optional<std::string>(const platform::FileQuestion& question)>;

class NamedFiles : public platform::PrintSurroundings {
public:
    explicit NamedFiles(FileChooser chooseFile) : mChooseFile(std::move(chooseFile)) {}

    std::optional<std::string> ChooseFile(const platform::FileQuestion& question) override {
        return mChooseFile(question);
    }
    std::optional<std::string> ChooseFileToOpen(const platform::FileQuestion& question) override {
        return mChooseFile(question);
    }
    // Nobody chooses a printer; throws std::runtime_error.
    bool PrintPages(const platform::PageSource& /*pages*/) override {
        throw std::runtime_error("nobody is there to choose a printer");
    }
    std::unique_ptr<platform::Progress> StartProgress(const std::string& /*title*/) override {
        return nullptr;
    }

private:
    FileChooser mChooseFile;
};

}  // namespace kelvane::output
