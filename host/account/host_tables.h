// The tables that the host keeps in an account beside the component's, and the settings it looks
// for in them.
#pragma once

#include <string_view>
#include <vector>

#include "adapters/tsql/language/table_description.h"
#include "data/account_tables.h"

namespace kelvane::host {

// The module under which the host keeps its own settings.
inline constexpr std::string_view kHostModule = "HOST";
// Who logs in, and into which account year, when nobody says otherwise.
inline constexpr std::string_view kUsualUser = "UsualUser";
inline constexpr std::string_view kUsualYear = "UsualYear";

// A table of the component's dictionary as a creator of tables takes it.
tsql::TableDescription Describe(const data::AccountTable& table);

// Unit, operators, calendar, settings.
std::vector<tsql::TableDescription> HostTables();

// All tables of an account: the component's, with `keyFields` (0, 1 or 2) columns for the key
// fields of the project item class, and the host's. Throws std::out_of_range for another number.
std::vector<tsql::TableDescription> AccountTables(int keyFields);

}  // namespace kelvane::host
