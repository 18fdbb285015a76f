// Surroundings that answer as they are told and note what they are asked for.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/print_surroundings.h"

namespace kelvane::output_test {

class RecordingSurroundings : public platform::PrintSurroundings {
public:
    std::optional<std::string> file;
    bool printingFails = false;
    // Asked for every time the progress is shown; true goes on.
    std::function<bool(std::size_t done, std::size_t total)> goesOn;

    std::vector<platform::FileQuestion> questions;
    std::vector<int> printedPages;  // page counts
    std::vector<std::string> progressTitles;
    std::vector<std::string> failures;

    std::optional<std::string> ChooseFileToOpen(
        const platform::FileQuestion& /*question*/) override {
        return std::nullopt;
    }
    std::optional<std::string> ChooseFile(const platform::FileQuestion& question) override {
        questions.push_back(question);
        return file;
    }
    bool PrintPages(const platform::PageSource& pages) override {
        if (printingFails) throw std::runtime_error("out of paper");
        printedPages.push_back(pages.PageCount());
        return true;
    }
    std::unique_ptr<platform::Progress> StartProgress(const std::string& title) override {
        progressTitles.push_back(title);
        return goesOn ? std::make_unique<Shown>(*this) : nullptr;
    }
    void Failed(std::string_view reason) override { failures.emplace_back(reason); }

private:
    struct Shown : platform::Progress {
        explicit Shown(RecordingSurroundings& around) : owner(around) {}
        bool Show(std::size_t done, std::size_t total) override {
            return owner.goesOn(done, total);
        }
        RecordingSurroundings& owner;
    };
};

}  // namespace kelvane::output_test
