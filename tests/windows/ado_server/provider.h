// What a connection string and a statement's text say to the object library itself.
#pragma once

#include <string>
#include <string_view>

#include "tests/windows/ado_server/field_value.h"

namespace kelvane::ado_server {

struct Provider {
    MoneyForm money = MoneyForm::Decimal;
    // The string without what is the library's own: what ODBC gets.
    std::string rest;
};

// Reads "Provider=…" anywhere in a connection string. The default is the bridge to ODBC, MSDASQL,
// which gives amounts as decimals; with SQLOLEDB they come as currency, through ODBC all the same.
// Throws AutomationError 3706 for any other.
Provider ProviderOf(std::string_view connectionString);

// Whether the first result of the text has rows.
bool GivesRows(std::string_view statement);

}  // namespace kelvane::ado_server
