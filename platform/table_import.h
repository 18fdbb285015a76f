// TableImport: what it takes to bring tables from outside into an account, or to set them beside
// it: files to choose and to read, copied texts, the journal of batches, the mapping of a ledger,
// and a place to show how far long work is. Everything is called on the user-interface thread.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/batch_journal.h"
#include "platform/print_surroundings.h"
#include "platform/table.h"

namespace kelvane::platform {

class TableImport {
public:
    virtual ~TableImport() = default;
    TableImport() = default;
    TableImport(const TableImport&) = delete;
    TableImport& operator=(const TableImport&) = delete;

    // A file that is there (UTF-8); nothing when the operator cancelled.
    virtual std::optional<std::string> ChooseFile(const FileQuestion& question) = 0;

    // A file, and a text that was copied. Both throw TableRefused.
    virtual std::unique_ptr<TableReader> OpenFile(const std::string& path) = 0;
    virtual std::unique_ptr<TableReader> OpenCopied(const std::string& text) = 0;

    // By what the same file or text is known again. Throws std::runtime_error, in Chinese, for a
    // file that cannot be read.
    virtual std::string HashOfFile(const std::string& path) = 0;
    virtual std::string HashOfText(const std::string& text) = 0;

    // The journal of the account that is logged in to. Throws std::runtime_error when nobody knows
    // where it is.
    virtual std::unique_ptr<BatchJournal> OpenJournal() = 0;

    // The mapping of the ledger that is kept for the account that is logged in to; empty when there
    // is none, or nobody knows where it would be.
    virtual std::string MapFile() { return {}; }

    // As PrintSurroundings::StartProgress().
    virtual std::unique_ptr<Progress> StartProgress(const std::string& title) = 0;
};

}  // namespace kelvane::platform
