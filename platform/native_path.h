// Paths are handed about with the separators of the system that the accounts come from.
#pragma once

#include <algorithm>
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

}  // namespace kelvane::platform
