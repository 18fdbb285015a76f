#include "host/surroundings/table_import.h"

#include "adapters/journal/file_hash.h"
#include "adapters/journal/folder_journal.h"
#include "adapters/tables/open_table.h"

namespace kelvane::host {

std::unique_ptr<platform::TableReader> TableImport::OpenFile(const std::string& path) {
    return tables::OpenTable(path);
}

std::unique_ptr<platform::TableReader> TableImport::OpenCopied(const std::string& text) {
    return tables::OpenCopiedTable(text);
}

std::string TableImport::HashOfFile(const std::string& path) {
    return journal::HashOfFile(path);
}

std::string TableImport::HashOfText(const std::string& text) {
    return journal::HashOfText(text);
}

std::unique_ptr<platform::BatchJournal> TableImport::OpenJournal() {
    return std::make_unique<journal::FolderJournal>(mFindFolder());
}

}  // namespace kelvane::host
