// A folder for one test's files, removed with all its content.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

namespace kelvane::host_test {

class TemporaryFolder {
public:
    TemporaryFolder()
        : mPath(std::filesystem::temp_directory_path() /
                ("kelvane-test-" + std::to_string(std::random_device()()))) {
        std::filesystem::create_directories(mPath);
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(mPath, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& Path() const { return mPath; }
    std::filesystem::path operator/(const std::string& name) const { return mPath / name; }

    // The names of the files in it, so that a test sees what was left behind.
    std::size_t FileCount() const {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(mPath),
                                                      std::filesystem::directory_iterator()));
    }

private:
    std::filesystem::path mPath;
};

inline void WriteText(const std::filesystem::path& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

inline std::string ReadText(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace kelvane::host_test
