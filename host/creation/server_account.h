// A new account in a database on a server.
#pragma once

#include "host/account/account_place.h"
#include "host/creation/account_creation.h"

namespace kelvane::host {

// Creates the account's tables in the database, which stays as it is otherwise, and fills them:
// all in one transaction. Throws CreationError, also when the database holds tables of an account
// and they are not to be replaced; replacing drops the account's tables and no others.
void CreateAccountDatabase(const AccountPlace& place, const NewAccount& account);

}  // namespace kelvane::host
