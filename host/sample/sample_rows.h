// Writes the sample company into a new account.
#pragma once

#include "host/account/new_account.h"
#include "platform/database.h"

namespace kelvane::host {

// Inserts master data, entries with their detail lines, and budgets; opens no transaction. Throws
// platform::DatabaseError.
void InsertSample(platform::Connection& connection, const NewAccount& account);

}  // namespace kelvane::host
