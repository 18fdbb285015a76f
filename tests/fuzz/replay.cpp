// Gives a fuzz target what is in files, and the same with changes that are the same in every run:
//
//   PROGRAM CHANGES PATH...     CHANGES: how many changed copies of each file
//
// The input that a promise breaks with is kept as "found_input" where the program was started. A
// PATH is a file or a folder of files; a folder that is not there holds none.
#include <algorithm>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

namespace {

// The input that is tried, and where it is left when it ends the process.
std::string gTried;
const std::filesystem::path gFound = std::filesystem::current_path() / "found_input";

void KeepFound(int /*signal*/) {
    std::ofstream(gFound, std::ios::binary) << gTried;
    std::cerr << "kept in " << gFound << "\n";
}

void Try(const std::string& content) {
    gTried = content;
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(content.data()), content.size());
}

// Bytes are made others, taken out and repeated elsewhere.
void Change(std::string& content, std::mt19937& random) {
    constexpr std::size_t kMostChanges = 8;
    constexpr std::size_t kLongest = 64;
    const auto below = [&random](std::size_t most) { return random() % most; };
    for (std::size_t count = 1 + below(kMostChanges); count > 0 && !content.empty(); --count) {
        const std::size_t at = below(content.size());
        switch (below(3)) {
            case 0:
                content[at] = static_cast<char>(random());
                break;
            case 1:
                content.erase(at, below(kLongest));
                break;
            default:
                content.insert(below(content.size()), content.substr(at, below(kLongest)));
        }
    }
}

// In the order of their names, so that every run tries the same.
std::vector<std::string> FilesIn(const std::string& path) {
    namespace fs = std::filesystem;
    if (!fs::is_directory(path)) return {path};
    std::vector<std::string> files;
    for (const fs::directory_entry& entry : fs::directory_iterator(path)) {
        files.push_back(entry.path().string());
    }
    std::sort(files.begin(), files.end());
    return files;
}

}  // namespace

int main(int count, char** arguments) {
    if (count < 3) return 2;
    const long changes = std::stol(arguments[1]);
    std::signal(SIGABRT, KeepFound);
    std::mt19937 random(1);
    long tried = 0;
    for (int at = 2; at < count; ++at) {
        if (!std::filesystem::exists(arguments[at])) continue;
        for (const std::string& path : FilesIn(arguments[at])) {
            std::ifstream file(path, std::ios::binary);
            const std::string content{std::istreambuf_iterator<char>(file), {}};
            if (content.empty()) {
                std::cerr << path << ": nothing to read\n";
                return 1;
            }
            Try(content);
            for (long change = 0; change < changes; ++change) {
                std::string changed = content;
                Change(changed, random);
                Try(changed);
            }
            tried += changes + 1;
        }
    }
    std::cout << "tried " << tried << "\n";
    return tried > 0 ? 0 : 1;
}
