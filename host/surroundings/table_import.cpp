#include "host/surroundings/table_import.h"

#include <stdexcept>
#include <system_error>

#include "adapters/journal/file_hash.h"
#include "adapters/journal/folder_journal.h"
#include "adapters/tables/open_table.h"
#include "platform/native_path.h"

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

std::string TableImport::MapFile() try {
    const std::string file = mFindMap();
    std::error_code unknown;
    return std::filesystem::exists(platform::PathOf(file), unknown) ? file : std::string();
} catch (const std::runtime_error&) {
    // The operator chooses one himself.
    return {};
}

}  // namespace kelvane::host
