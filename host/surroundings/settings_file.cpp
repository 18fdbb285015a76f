#include "host/surroundings/settings_file.h"

#include <cstdlib>
#include <fstream>

#include "host/surroundings/user_folders.h"
#include "platform/ascii.h"

namespace kelvane::host {

namespace {

// Longer files are not settings.
constexpr std::uintmax_t kMaxFileSize = 1U << 20U;

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r";
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string_view WithoutQuotes(std::string_view text) {
    const bool quoted = text.size() >= 2 && text.front() == '"' && text.back() == '"';
    return quoted ? text.substr(1, text.size() - 2) : text;
}

platform::Registry::Answer Find(std::istream& lines, std::string_view key, std::string_view name) {
    using Outcome = platform::Registry::Outcome;
    platform::Registry::Answer answer;
    bool inKey = false;
    std::string line;
    for (bool first = true; std::getline(lines, line); first = false) {
        std::string_view text = line;
        if (first && text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
        text = Trimmed(text);
        if (text.empty() || text.front() == ';' || text.front() == '#') continue;
        if (text.front() == '[' && text.back() == ']') {
            inKey = platform::EqualIgnoringCase(Trimmed(text.substr(1, text.size() - 2)), key);
            if (inKey && answer.outcome == Outcome::NoKey) answer.outcome = Outcome::NoValue;
            continue;
        }
        const auto equals = text.find('=');
        if (!inKey || equals == std::string_view::npos) continue;
        if (!platform::EqualIgnoringCase(Trimmed(text.substr(0, equals)), name)) continue;
        answer = {Outcome::Found, std::string(WithoutQuotes(Trimmed(text.substr(equals + 1))))};
    }
    return answer;
}

}  // namespace

std::filesystem::path SettingsPath() {
    if (const char* named = std::getenv("KELVANE_SETTINGS"); named != nullptr && *named != '\0') {
        return named;
    }
    const auto folder = UserFolder("XDG_CONFIG_HOME", ".config");
    return folder.empty() ? folder : folder / "kelvane" / "settings.ini";
}

platform::Registry::Answer SettingsFile::ReadMachineText(std::string_view key,
                                                         std::string_view name,
                                                         std::size_t bufferLength) {
    try {
        std::error_code error;
        if (!std::filesystem::is_regular_file(mPath, error)) return {};
        if (std::filesystem::file_size(mPath, error) > kMaxFileSize || error) return {};
        std::ifstream lines(mPath);
        Answer answer = Find(lines, key, name);
        if (answer.outcome == Outcome::Found && answer.text.size() + 1 > bufferLength) {
            return {Outcome::NoValue, {}};
        }
        return answer;
    } catch (const std::exception&) {
        return {};
    }
}

}  // namespace kelvane::host
