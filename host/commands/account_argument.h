// The account that a command is for, as its arguments name it: the same in every command.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "host/account/account_place.h"

namespace kelvane::host {

struct AccountArgument {
    std::string file;
    std::string database;  // a connection string; empty: the account is `file`
    ServerTimeouts timeouts;

    // Asks for a password that is lacking (PasswordFor()).
    AccountPlace Place() const;
};

// Gives `command` the arguments that fill `account`, which outlives it.
void AddAccount(CLI::App& command, AccountArgument& account);

}  // namespace kelvane::host
