#include "host/surroundings/user_folders.h"

#include <cstdlib>

namespace kelvane::host {

std::filesystem::path UserFolder(const char* variable, const char* below) {
    const char* named = std::getenv(variable);
    if (named != nullptr && std::filesystem::path(named).is_absolute()) return named;
    const char* home = std::getenv("HOME");
    if (home == nullptr || *home == '\0') return {};
    return std::filesystem::path(home) / below;
}

std::filesystem::path ProgramFolder() {
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::filesystem::path() : program.parent_path();
}

}  // namespace kelvane::host
