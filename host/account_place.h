// How the host reaches an account file.
#pragma once

#include <memory>
#include <string>

#include "platform/database.h"

namespace kelvane::host {

// The connection string of the account file `path`.
std::string ConnectionStringOf(const std::string& path);

// A connection that is not open yet and that refuses a file without the account's tables.
std::shared_ptr<platform::Connection> NewConnection();

// An open connection to the account file `path`. Throws platform::DatabaseError.
std::shared_ptr<platform::Connection> OpenAccount(const std::string& path);

}  // namespace kelvane::host
