// The rows without which nobody can log in on an account or record an entry: unit, operators,
// calendar, settings, counter, and the fields of the project item class.
#pragma once

#include <vector>

#include "host/account/table_rows.h"
#include "host/creation/account_creation.h"

namespace kelvane::host {

std::vector<TableRows> BaseRows(const NewAccount& account);

}  // namespace kelvane::host
