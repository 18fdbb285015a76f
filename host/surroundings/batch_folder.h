// Where the batches of an account are written down (docs/batches.md), and where the mapping of its
// ledger is kept (docs/tie-out.md).
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace kelvane::host {

// Of an account file (UTF-8): beside it, under its name; where `path` is a link, beside the file
// that it leads to.
std::filesystem::path BatchFolderOfFile(const std::string& path);

// Gives the batches of an account file that another account takes the place of a name of their own:
// they tell nothing of the new one. Throws std::filesystem::filesystem_error.
void SetBatchesAside(const std::string& path);

// Of a database on a server: among the user's own files, a folder for each server and database that
// an ODBC connection string can name. User and password make no difference. Throws
// std::runtime_error when the string names none, or when nothing is known of the user's files.
std::filesystem::path BatchFolderOfServer(std::string_view connectionString);

// The same for the mapping, without its extension.
std::filesystem::path MapPlaceOfFile(const std::string& path);
std::filesystem::path MapPlaceOfServer(std::string_view connectionString);

// The file (UTF-8) of the mapping with that place: a workbook, unless only a text is there.
std::string MapFileAt(const std::filesystem::path& place);

}  // namespace kelvane::host
