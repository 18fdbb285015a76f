// Where a user's own files are, by the conventions of the desktop.
#pragma once

#include <filesystem>

namespace kelvane::host {

// The folder that environment variable `variable` names when that is an absolute path, else
// `below` in the home folder. Empty when the home folder is not known either.
std::filesystem::path UserFolder(const char* variable, const char* below);

// The folder of this program's file, or an empty path when the system does not tell.
std::filesystem::path ProgramFolder();

}  // namespace kelvane::host
