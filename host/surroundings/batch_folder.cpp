#include "host/surroundings/batch_folder.h"

#include <stdexcept>

#include "adapters/journal/file_hash.h"
#include "host/surroundings/server_name.h"
#include "host/surroundings/translation.h"
#include "host/surroundings/user_folders.h"
#include "host/surroundings/user_settings_file.h"
#include "platform/native_path.h"
#include "platform/utf8.h"

namespace kelvane::host {

namespace fs = std::filesystem;

namespace {

// The part of a folder's name that a person reads.
constexpr std::size_t kReadable = 40;  // characters
// The part that tells accounts apart, also where letter case does not.
constexpr std::size_t kTelling = 16;  // hexadecimal digits

bool IsFitForName(const platform::Utf8Character& character) {
    constexpr std::string_view kFit = "-_.";
    const char32_t value = character.value;
    const char32_t letter = value | 0x20U;
    return character.valid &&
           (value >= 0x80 || (letter >= 'a' && letter <= 'z') || (value >= '0' && value <= '9') ||
            kFit.find(static_cast<char>(value)) != std::string_view::npos);
}

std::string FitForName(std::string_view text) {
    std::string fit;
    while (!text.empty()) {
        const std::string_view rest = text;
        const auto character = platform::TakeCharacter(text);
        if (IsFitForName(character)) {
            fit += rest.substr(0, character.length);
        } else if (!fit.ends_with('-')) {
            fit += '-';
        }
    }
    // A name that begins with a point would be hidden.
    if (fit.starts_with('.')) fit.front() = '-';
    return std::string(platform::FirstCharacters(fit, kReadable));
}

}  // namespace

fs::path BatchFolderOfFile(const std::string& path) {
    fs::path account = platform::PathOf(path);
    std::error_code unknown;
    if (fs::is_symlink(account, unknown)) {
        fs::path target = fs::weakly_canonical(account, unknown);
        if (!unknown) account = std::move(target);
    }
    account += ".batches";
    return account;
}

void SetBatchesAside(const std::string& path) {
    const fs::path folder = BatchFolderOfFile(path);
    if (!fs::exists(folder)) return;
    for (int number = 1;; ++number) {
        fs::path former = folder;
        former += "." + std::to_string(number);
        if (fs::exists(former)) continue;
        fs::rename(folder, former);
        return;
    }
}

fs::path BatchFolderOfServer(std::string_view connectionString) {
    const std::string account = AccountOfConnection(connectionString);
    if (account.empty()) {
        throw std::runtime_error(Translated(
            "the connection string names no server and no database; say with --journal where the "
            "account's batches are"));
    }
    const fs::path own = UserFolder("XDG_DATA_HOME", ".local/share");
    if (own.empty()) {
        throw std::runtime_error(Translated(
            "the folder of your files is not known; say with --journal where the account's batches "
            "are"));
    }
    return own / "kelvane" / "batches" /
           platform::PathOf(FitForName(ServerNameOf(connectionString)) + '-' +
                            journal::HashOfText(account).substr(0, kTelling));
}

}  // namespace kelvane::host
