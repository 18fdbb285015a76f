#include "host/surroundings/user_settings_file.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <optional>
#include <vector>

#include "adapters/output/files/safe_file.h"
#include "host/surroundings/private_files.h"
#include "host/surroundings/user_folders.h"
#include "platform/ascii.h"
#include "platform/connection_string.h"
#include "platform/native_path.h"

namespace kelvane::host {

namespace {

namespace fs = std::filesystem;

// Longer files were not written here.
constexpr std::uintmax_t kMaxFileSize = 1U << 20U;

// What says in a connection string which database is meant.
constexpr std::array<std::string_view, 12> kPlaceNames = {
    "Data Source", "Server",   "Servername",      "Address", "Addr", "Network Address",
    "Port",        "Database", "Initial Catalog", "DSN",     "Host", "Service"};

std::string OneField(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '\t' || c == '\n' || c == '\r'; }, ' ');
    return text;
}

// The lines of the file; none for one that is not there, nothing for one that must not be touched.
std::optional<std::vector<std::string>> ReadLines(const fs::path& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (status.type() == fs::file_type::not_found) return std::vector<std::string>();
    if (!fs::is_regular_file(status)) return std::nullopt;
    const std::uintmax_t size = fs::file_size(path, error);
    if (error || size > kMaxFileSize) return std::nullopt;
    std::ifstream file(path, std::ios::binary);
    if (!file) return std::nullopt;
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        lines.push_back(std::move(line));
    }
    if (file.bad()) return std::nullopt;
    return lines;
}

}  // namespace

fs::path UserSettingsPath() {
    const fs::path folder = UserFolder("XDG_CONFIG_HOME", ".config");
    return folder.empty() ? folder : folder / "kelvane" / "windows.txt";
}

std::string AccountOfFile(const std::string& path) {
    std::error_code error;
    const fs::path whole = fs::weakly_canonical(fs::absolute(platform::PathOf(path)), error);
    return error ? path : platform::Utf8Of(whole);
}

std::string AccountOfConnection(std::string_view connectionString) {
    std::string account;
    for (const auto& part : platform::ReadConnectionString(connectionString)) {
        const auto* const name =
            std::find_if(kPlaceNames.begin(), kPlaceNames.end(), [&](std::string_view candidate) {
                return platform::EqualIgnoringCase(candidate, part.name);
            });
        if (name == kPlaceNames.end()) continue;
        if (!account.empty()) account += ';';
        account += std::string(*name) + '=' + part.value;
    }
    return account;
}

void UserSettingsFile::BelongTo(const std::string& account, const std::string& operatorId) {
    mAccount = OneField(account);
    mOperator = OneField(operatorId);
}

std::string UserSettingsFile::LineStart(const std::string& name) const {
    return mAccount + '\t' + mOperator + '\t' + OneField(name) + '\t';
}

std::string UserSettingsFile::Kept(const std::string& name) noexcept try {
    if (mPath.empty() || mAccount.empty()) return {};
    const auto lines = ReadLines(mPath);
    if (!lines) return {};
    const std::string start = LineStart(name);
    const auto found = std::find_if(lines->begin(), lines->end(),
                                    [&](const auto& line) { return line.starts_with(start); });
    return found == lines->end() ? std::string() : found->substr(start.size());
} catch (...) {
    return {};
}

// Read anew, so that what another window or another program kept meanwhile stays.
void UserSettingsFile::Keep(const std::string& name, const std::string& text) noexcept try {
    if (mPath.empty() || mAccount.empty()) return;
    auto lines = ReadLines(mPath);
    if (!lines) return;
    const std::string start = LineStart(name);
    std::erase_if(*lines, [&](const std::string& line) { return line.starts_with(start); });
    if (!text.empty()) lines->push_back(start + OneField(text));
    MakePrivateFolder(mPath.parent_path());
    output::SafeFile file(platform::Utf8Of(mPath));
    for (const std::string& line : *lines) file.Write(line + '\n');
    file.Finish();
} catch (...) {
    // Then the windows open the next time as they did this time.
}

}  // namespace kelvane::host
