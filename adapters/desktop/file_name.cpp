#include "adapters/desktop/file_name.h"

#include <algorithm>
#include <filesystem>
#include <string_view>

namespace kelvane::desktop {

using platform::FileType;

namespace {

constexpr std::size_t kLongestEnding = 4;
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
std::string_view EndingOf(std::string_view path) {
    const std::size_t point = path.rfind('.');
    const std::size_t folder = path.find_last_of(kSeparators);
    const bool none = point == std::string_view::npos ||
                      (folder != std::string_view::npos && point < folder) || point == 0 ||
                      point == folder + 1;
    return none ? std::string_view() : path.substr(point + 1);
}

bool IsEndingOf(std::string_view ending, const std::vector<FileType>& types) {
    return std::any_of(types.begin(), types.end(),
                       [&](const FileType& type) { return Lower(ending) == Lower(type.ending); });
}

}  // namespace

std::string WithEnding(const std::string& path, const FileType& offered, const FileType& chosen,
                       const std::vector<FileType>& types) {
    const std::string_view ending = EndingOf(path);
    if (offered.ending != chosen.ending && Lower(ending) == Lower(offered.ending)) {
        return path.substr(0, path.size() - ending.size()) + chosen.ending;
    }
    const bool typed = !ending.empty() && ending.size() <= kLongestEnding &&
                       std::all_of(ending.begin(), ending.end(), IsLetter);
    if (typed || IsEndingOf(ending, types)) return path;
    return path + "." + chosen.ending;
}

std::string WithoutEnding(const std::string& name, const std::vector<FileType>& types) {
    const std::string_view ending = EndingOf(name);
    if (!IsEndingOf(ending, types)) return name;
    return name.substr(0, name.size() - ending.size() - 1);
}

std::string FilterOf(const std::vector<FileType>& types) {
    std::string filter;
    for (const FileType& type : types) {
        if (!filter.empty()) filter += "|";
        filter += type.name + " (*." + type.ending + ")|*." + type.ending;
        if (Upper(type.ending) != type.ending) filter += ";*." + Upper(type.ending);
    }
    return filter;
}

}  // namespace kelvane::desktop
