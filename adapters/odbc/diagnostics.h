// What a driver reports behind a failed call.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "adapters/odbc/failures.h"
#include "adapters/odbc/odbc_api.h"

namespace kelvane::odbc {

// A call of the driver failed; a dialect has still to say what that means.
class DriverFailure : public std::runtime_error {
public:
    explicit DriverFailure(Diagnostic diagnostic)
        : std::runtime_error(diagnostic.text), mDiagnostic(std::move(diagnostic)) {}

    const Diagnostic& Reported() const { return mDiagnostic; }

private:
    Diagnostic mDiagnostic;
};

// The error among the handle's records: a record that tells of a lost connection, a deadlock or a
// time-out before any other, a warning only when there is nothing else. That there is no connection
// does not come before the reason for it. A text that says so when there is no record at all.
Diagnostic ReportedError(SQLSMALLINT type, SQLHANDLE handle);

// A driver's text without the names in brackets before it: "[A][B]text" is "text".
std::string WithoutPrefixes(std::string_view text);

}  // namespace kelvane::odbc
