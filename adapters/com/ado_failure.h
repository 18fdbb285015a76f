// What ADO tells of a failed call, and what that means to the account.
#pragma once

#include <string>
#include <string_view>

#include "adapters/com/dispatch_object.h"

namespace kelvane::com {

struct AdoFailure {
    // ADO's description without driver names in brackets.
    std::string description;
    int nativeCode = 0;
    std::string sqlState;
    HRESULT code = E_FAIL;

    // Another one holds what was asked for.
    bool IsBusy() const;
    // The connection is gone.
    bool IsLost() const;
    // The database has rolled back the transaction by itself, to end a deadlock.
    bool EndsTransaction() const;
};

// The failure of a call: the first error in the connection's Errors, and what the call itself
// reported where there is none. `connection` may be empty.
AdoFailure FailureOf(const DispatchError& error, const DispatchObject& connection);

}  // namespace kelvane::com
