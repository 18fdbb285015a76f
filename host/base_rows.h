// The rows without which nobody can log in on an account or record an entry: unit, operators,
// calendar, settings, counter, and the fields of the project item class.
#pragma once

#include <vector>

#include "host/account_creation.h"
#include "host/table_rows.h"

namespace kelvane::host {

std::vector<TableRows> BaseRows(const NewAccount& account);

}  // namespace kelvane::host
