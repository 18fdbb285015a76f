// Windows' conventions.

#include <windows.h>

#include <cstdlib>

#include "host/surroundings/user_folders.h"

namespace kelvane::host {

namespace {

constexpr std::size_t kMaxPathLength = 32768;

std::filesystem::path FolderOf(const wchar_t* variable) {
    const wchar_t* named = _wgetenv(variable);
    const std::filesystem::path folder = named == nullptr ? L"" : named;
    return folder.is_absolute() ? folder : std::filesystem::path();
}

}  // namespace

// All of a user's own files lie in one folder here, whatever the parts are called elsewhere.
std::filesystem::path UserFolder(const char* variable, const char* /*below*/) {
    const auto named = FolderOf(std::filesystem::path(variable).c_str());
    return named.empty() ? FolderOf(L"APPDATA") : named;
}

std::filesystem::path ProgramFolder() {
    std::wstring program(kMaxPathLength, L'\0');
    const DWORD length =
        GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size()));
    program.resize(length);
    return std::filesystem::path(program).parent_path();
}

}  // namespace kelvane::host
