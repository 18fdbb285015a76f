// The log of trapped errors: a text file that grows by one line an error, or nothing.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "platform/diagnostics.h"

namespace kelvane::host {

// The file that the environment variable KELVANE_LOG names; empty when there is none.
std::filesystem::path LogPath();

class DiagnosticsLog : public platform::Diagnostics {
public:
    // `path`: the file to append to; with an empty one nothing is written. `now`: the time that
    // stands before each line; without it the local time, "yyyy-mm-dd hh:mm:ss.mmm".
    explicit DiagnosticsLog(std::filesystem::path path, std::function<std::string()> now = {});

    // True when nothing is to be written, or the file can be.
    bool IsWritable() const;

    // Writes "TIME [PLACE] DETAIL" as one line. Line breaks become blanks, and passwords of
    // connection strings are left out. A log that cannot be written is no error.
    void Trapped(std::string_view place, std::string_view detail) noexcept override;

private:
    std::filesystem::path mPath;
    std::function<std::string()> mNow;
};

}  // namespace kelvane::host
