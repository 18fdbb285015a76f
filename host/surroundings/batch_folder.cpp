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

// What is named like the account file that `path` leads to.
fs::path BesideFile(const std::string& path, const char* extension) {
    fs::path account = platform::PathOf(path);
    std::error_code unknown;
    if (fs::is_symlink(account, unknown)) {
        fs::path target = fs::weakly_canonical(account, unknown);
        if (!unknown) account = std::move(target);
    }
    account += extension;
    return account;
}

// What a server's accounts have among the user's own files.
struct ServerPlace {
    const char* folder;
    const char* unnamed;  // why there is none: the connection string, the user's files
    const char* homeless;
};

fs::path PlaceOfServer(std::string_view connectionString, const ServerPlace& place) {
    const std::string account = AccountOfConnection(connectionString);
    if (account.empty()) throw std::runtime_error(Translated(place.unnamed));
    const fs::path own = UserFolder("XDG_DATA_HOME", ".local/share");
    if (own.empty()) throw std::runtime_error(Translated(place.homeless));
    return own / "kelvane" / place.folder /
           platform::PathOf(FitForName(ServerNameOf(connectionString)) + '-' +
                            journal::HashOfText(account).substr(0, kTelling));
}

}  // namespace

fs::path BatchFolderOfFile(const std::string& path) {
    return BesideFile(path, ".batches");
}

fs::path MapPlaceOfFile(const std::string& path) {
    return BesideFile(path, ".map");
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
    return PlaceOfServer(
        connectionString,
        {.folder = "batches",
         .unnamed = ToTranslate("the connection string names no server and no database; say with "
                                "--journal where the account's batches are"),
         .homeless = ToTranslate("the folder of your files is not known; say with --journal where "
                                 "the account's batches are")});
}

fs::path MapPlaceOfServer(std::string_view connectionString) {
    return PlaceOfServer(
        connectionString,
        {.folder = "maps",
         .unnamed = ToTranslate("the connection string names no server and no database; say with "
                                "--map where the account's mapping is"),
         .homeless = ToTranslate("the folder of your files is not known; say with --map where the "
                                 "account's mapping is")});
}

std::string MapFileAt(const fs::path& place) {
    fs::path workbook = place;
    workbook += ".xlsx";
    fs::path text = place;
    text += ".csv";
    std::error_code unknown;
    const bool isText = !fs::exists(workbook, unknown) && fs::exists(text, unknown);
    return platform::Utf8Of(isText ? text : workbook);
}

}  // namespace kelvane::host
