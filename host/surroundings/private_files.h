// Files and folders of a person's own, which nobody else may look into.
#pragma once

#include <filesystem>

namespace kelvane::host {

// Makes the empty file `path` for its owner alone, unless there is a file; one that is there keeps
// its rights. What cannot be made is noticed by who opens it.
void MakePrivateFile(const std::filesystem::path& path);

// The same for a folder with those above it.
void MakePrivateFolder(const std::filesystem::path& path);

}  // namespace kelvane::host
