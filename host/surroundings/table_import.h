// Importing tables, for a composition of the component: files and copied texts are read by the
// program's own readers, and batches are written down in a folder.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "platform/table_import.h"

namespace kelvane::host {

class TableImport : public platform::TableImport {
public:
    using FindFolder = std::function<std::filesystem::path()>;

    // Where the mapping of the account that is logged in to is (UTF-8), if there is one.
    using FindMap = std::function<std::string()>;

    // `surroundings` outlives the object. `findFolder`: where the batches of the account that is
    // logged in to are; asked whenever the journal is opened. Both may throw std::runtime_error.
    TableImport(platform::PrintSurroundings& surroundings, FindFolder findFolder, FindMap findMap)
        : mSurroundings(surroundings),
          mFindFolder(std::move(findFolder)),
          mFindMap(std::move(findMap)) {}

    std::optional<std::string> ChooseFile(const platform::FileQuestion& question) override {
        return mSurroundings.ChooseFileToOpen(question);
    }
    std::unique_ptr<platform::TableReader> OpenFile(const std::string& path) override;
    std::unique_ptr<platform::TableReader> OpenCopied(const std::string& text) override;
    std::string HashOfFile(const std::string& path) override;
    std::string HashOfText(const std::string& text) override;
    std::unique_ptr<platform::BatchJournal> OpenJournal() override;
    std::string MapFile() override;
    std::unique_ptr<platform::Progress> StartProgress(const std::string& title) override {
        return mSurroundings.StartProgress(title);
    }

private:
    platform::PrintSurroundings& mSurroundings;
    FindFolder mFindFolder;
    FindMap mFindMap;
};

}  // namespace kelvane::host
