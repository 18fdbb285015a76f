// The engine's files on a disk whose power can be cut at any moment: what was written since a file
// was last synced is then lost, torn or kept, each write for itself.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <random>

struct sqlite3_vfs;

namespace kelvane::faults {

class CutFiles {
public:
    CutFiles();
    ~CutFiles();
    CutFiles(const CutFiles&) = delete;
    CutFiles& operator=(const CutFiles&) = delete;

    // Called after each write, and before and after each sync. Opens no files of the engine.
    std::function<void()> stepped;

    // Makes `folder`, with the files as a power cut now could leave them. `random` decides about
    // each write that was not synced.
    void Cut(const std::filesystem::path& folder, std::mt19937& random) const;

private:
    std::unique_ptr<sqlite3_vfs> mLayer;
};

}  // namespace kelvane::faults
