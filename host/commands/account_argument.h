// The account that a command is for, as its arguments name it: the same in every command.
#pragma once

#include <CLI/CLI.hpp>
#include <filesystem>
#include <string>
#include <vector>

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

// Gives it one more argument that has to be there, behind the account; the account of `account` was
// added before.
CLI::Option* AddBehindAccount(CLI::App& command, const std::string& name, std::string& value,
                              const char* description);

// `arguments` of a command with its --database in front of all others, so that it is known where
// the other arguments stand.
void PutDatabaseFirst(std::vector<std::string>& arguments);

// The option that says where the account's batches are, for BatchFolderOf().
void AddJournal(CLI::App& command, std::string& folder);
// `folder`, or where the account's batches usually are when that is empty. Asks for no password;
// throws std::runtime_error like BatchFolderOfServer().
std::filesystem::path BatchFolderOf(const AccountArgument& account, const std::string& folder);

}  // namespace kelvane::host
