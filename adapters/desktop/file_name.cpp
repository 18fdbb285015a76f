#include "adapters/desktop/file_name.h"

#include <algorithm>
#include <filesystem>
#include <string_view>

namespace kelvane::desktop {

using platform::FileType;

namespace {

constexpr std::size_t kMaxExtensionLength = 4;
// What stands between folders: a slash, and the system's own.
constexpr char kSeparators[] = {'/', static_cast<char>(std::filesystem::path::preferred_separator),
                                '\0'};

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

std::string Cased(std::string text, char first, char last, int distance) {
    std::transform(text.begin(), text.end(), text.begin(), [=](char c) {
        return c >= first && c <= last ? static_cast<char>(c + distance) : c;
    });
    return text;
}

std::string Lower(std::string_view text) {
    return Cased(std::string(text), 'A', 'Z', 'a' - 'A');
}

std::string Upper(std::string_view text) {
    return Cased(std::string(text), 'a', 'z', 'A' - 'a');
}

// What stands behind the last point of the file's own name.
std::string_view ExtensionOf(std::string_view path) {
    const std::size_t point = path.rfind('.');
    const std::size_t folder = path.find_last_of(kSeparators);
    const bool none = point == std::string_view::npos ||
                      (folder != std::string_view::npos && point < folder) || point == 0 ||
                      point == folder + 1;
    return none ? std::string_view() : path.substr(point + 1);
}

bool IsExtensionOf(std::string_view extension, const std::vector<FileType>& types) {
    return std::any_of(types.begin(), types.end(), [&](const FileType& type) {
        return Lower(extension) == Lower(type.extension);
    });
}

}  // namespace

std::string WithExtension(const std::string& path, const FileType& offered, const FileType& chosen,
                          const std::vector<FileType>& types) {
    const std::string_view extension = ExtensionOf(path);
    if (offered.extension != chosen.extension && Lower(extension) == Lower(offered.extension)) {
        return path.substr(0, path.size() - extension.size()) + chosen.extension;
    }
    const bool typed = !extension.empty() && extension.size() <= kMaxExtensionLength &&
                       std::all_of(extension.begin(), extension.end(), IsLetter);
    if (typed || IsExtensionOf(extension, types)) return path;
    return path + "." + chosen.extension;
}

std::string WithoutExtension(const std::string& name, const std::vector<FileType>& types) {
    const std::string_view extension = ExtensionOf(name);
    if (!IsExtensionOf(extension, types)) return name;
    return name.substr(0, name.size() - extension.size() - 1);
}

std::string FilterOf(const std::vector<FileType>& types) {
    std::string filter;
    for (const FileType& type : types) {
        if (!filter.empty()) filter += "|";
        filter += type.name + " (*." + type.extension + ")|*." + type.extension;
        if (Upper(type.extension) != type.extension) filter += ";*." + Upper(type.extension);
    }
    return filter;
}

}  // namespace kelvane::desktop
