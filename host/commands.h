// What the program's commands do. Each returns the program's exit status: 0, or 1 with the reason
// on standard error.
#pragma once

#include <optional>
#include <string>

#include "host/account_creation.h"
#include "host/account_host.h"
#include "platform/date_time.h"

namespace kelvane::host {

struct OpenArguments {
    std::string account;
    LoginRequest login;
    std::optional<platform::DateTime> today;
};

struct DriveArguments {
    std::string account;
    bool window = false;
    std::string screenshot;  // where to save the last window; empty: nowhere
};

int RunInit(const std::string& account, const NewAccount& content);
int RunOpen(const OpenArguments& arguments);
// Reads the script from standard input and writes the transcript to standard output.
int RunDrive(const DriveArguments& arguments);

// Writes "kelvane: TEXT" to standard error; returns 1.
int Fail(const std::string& text);

}  // namespace kelvane::host
