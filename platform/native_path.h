// Paths are handed about with the separators of the system that the accounts come from.
#pragma once

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>

namespace kelvane::platform {

// `path` (UTF-8) with this system's separators: elsewhere than on Windows a backslash separates
// folders as a slash does.
inline std::string NativePath(std::string_view path) {
    std::string native(path);
#ifndef _WIN32
    std::replace(native.begin(), native.end(), '\\', '/');
#endif
    return native;
}

// `path` (UTF-8) as the file system takes it. A plain text would be read in the system's code page.
inline std::filesystem::path PathOf(std::string_view path) {
    return std::u8string(path.begin(), path.end());
}

// `path` as UTF-8 text.
inline std::string Utf8Of(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

}  // namespace kelvane::platform
