#include "bench/accounts.h"

#include <unistd.h>

#include <filesystem>

#include "host/creation/account_creation.h"

namespace kelvane::bench {

namespace {

namespace fs = std::filesystem;

class RunFolder {
public:
    RunFolder() : mPath(fs::temp_directory_path() / ("kelvane-bench-" + std::to_string(getpid()))) {
        fs::create_directory(mPath);
    }
    ~RunFolder() {
        std::error_code ignored;
        fs::remove_all(mPath, ignored);
    }
    RunFolder(const RunFolder&) = delete;
    RunFolder& operator=(const RunFolder&) = delete;

    const fs::path& Path() const { return mPath; }

private:
    fs::path mPath;
};

std::string PathOf(const std::string& name) {
    static const RunFolder folder;
    return folder.Path() / (name + ".kelvane");
}

}  // namespace

std::string AccountWith(std::int64_t entries) {
    const std::string path = PathOf(std::to_string(entries));
    if (!fs::exists(path)) host::CreateAccountFile(path, {.sample = true, .entries = entries});
    return path;
}

std::string NewAccountWith(std::int64_t entries) {
    const std::string path = PathOf("written");
    host::CreateAccountFile(path, {.sample = true, .entries = entries, .replaceExisting = true});
    return path;
}

}  // namespace kelvane::bench
