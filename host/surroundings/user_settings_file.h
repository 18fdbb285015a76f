// The file that keeps what operators left their windows like: one line for each account, operator
// and window, with tabs between them and the text.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "platform/user_settings.h"

namespace kelvane::host {

// kelvane/windows.txt in the folder XDG_CONFIG_HOME, else in ~/.config; in APPDATA on Windows.
// Empty when none of these is known.
std::filesystem::path UserSettingsPath();

// What an account is known by in the file: a file by its whole path, a server's by the names of
// server and database in its connection string. Passwords and users are no part of it. Empty when
// the string names nothing.
std::string AccountOfFile(const std::string& path);
std::string AccountOfConnection(std::string_view connectionString);

// A file that cannot be read, or is no such file, keeps nothing and is left as it is; so are lines
// that say something else. It is its owner's alone.
class UserSettingsFile : public platform::UserSettings {
public:
    explicit UserSettingsFile(std::filesystem::path path) : mPath(std::move(path)) {}

    // Whose settings they are from now on. Without an account nothing is kept.
    void BelongTo(const std::string& account, const std::string& operatorId);

    std::string Kept(const std::string& name) noexcept override;
    void Keep(const std::string& name, const std::string& text) noexcept override;

private:
    std::string LineStart(const std::string& name) const;

    std::filesystem::path mPath;
    std::string mAccount;
    std::string mOperator;
};

}  // namespace kelvane::host
