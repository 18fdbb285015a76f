// What a print control needs of the surroundings it runs in: file dialogs, the system's printing,
// and a place to show how far a long piece of work is. Everything is called on the user-interface
// thread.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/page.h"

namespace kelvane::platform {

struct FileType {
    std::string name;       // "Excel 工作簿"
    std::string extension;  // "xlsx"
};

struct FileQuestion {
    std::string title;
    std::string suggestedName;  // without a folder
    std::vector<FileType> types;
};

// Shown from its making to its end.
class Progress {
public:
    virtual ~Progress() = default;
    // Shows that `done` of `total` steps are done. False when the operator wants the work to stop.
    virtual bool Show(std::size_t done, std::size_t total) = 0;
};

class PrintSurroundings {
public:
    virtual ~PrintSurroundings() = default;

    // The file to write to (UTF-8), with the extension of one of the types unless the operator
    // typed another; an existing file may be replaced. Nothing when the operator cancelled.
    virtual std::optional<std::string> ChooseFile(const FileQuestion& question) = 0;

    // A file that is there, to read from (UTF-8). Nothing when the operator cancelled.
    virtual std::optional<std::string> ChooseFileToOpen(const FileQuestion& question) = 0;

    // Lets the operator choose a printer and prints `pages` on it. False when the operator
    // cancelled. Throws std::runtime_error when it cannot be printed.
    virtual bool PrintPages(const PageSource& pages) = 0;

    // Called when a piece of work has taken a second; null when there is nothing to show it on.
    virtual std::unique_ptr<Progress> StartProgress(const std::string& title) = 0;

    // Told why printing or writing to a file failed, for those who want to know more than the
    // message that the operator sees.
    virtual void Failed(std::string_view /*reason*/) {}
};

}  // namespace kelvane::platform
