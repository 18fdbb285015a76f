// A new account: its tables, the rows without which nobody can log in, and, when asked for, a
// sample company with any number of opening entries.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>

#include "host/account/new_account.h"
#include "platform/database.h"

namespace kelvane::host {

// The account was not created; says why and names the file or the database. Nothing was changed;
// where only a former account's batches could not be set aside, the new account is there.
class CreationError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Creates the account file `path`, whole or not at all: it is built beside and takes its name when
// it is complete. Throws CreationError, also when a file of that name exists and is not to be
// replaced, or is in use.
void CreateAccountFile(const std::filesystem::path& path, const NewAccount& account);

// Writes the rows of a new account into its tables, which are there and empty; opens no
// transaction. Throws platform::DatabaseError.
void FillAccount(platform::Connection& connection, const NewAccount& account);

}  // namespace kelvane::host
