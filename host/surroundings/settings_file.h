// The settings file that stands for the machine's registry where there is none: sections named by
// keys, lines "name = value" in them.
#pragma once

#include <filesystem>

#include "platform/registry.h"

namespace kelvane::host {

// Where the settings are: the file that the environment variable KELVANE_SETTINGS names, else
// kelvane/settings.ini in the folder XDG_CONFIG_HOME, else in ~/.config. Empty when none of these
// is known.
std::filesystem::path SettingsPath();

// Reads the file anew for every question, so that a changed setting counts from the next window
// on. A file that is missing or cannot be read has no keys.
class SettingsFile : public platform::Registry {
public:
    explicit SettingsFile(std::filesystem::path path) : mPath(std::move(path)) {}

    Answer ReadMachineText(std::string_view key, std::string_view name,
                           std::size_t bufferLength) override;

private:
    std::filesystem::path mPath;
};

}  // namespace kelvane::host
