// What an action fails with.
#pragma once

#include <functional>
#include <string>

#include "platform/database.h"

namespace kelvane::database_test {

// The native code of the DatabaseError that `action` throws; 0 when it throws none.
inline int ErrorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const platform::DatabaseError& error) {
        return error.NativeCode();
    }
    return 0;
}

// Its text; empty when it throws none.
inline std::string TextOfError(const std::function<void()>& action) {
    try {
        action();
    } catch (const platform::DatabaseError& error) {
        return error.what();
    }
    return {};
}

}  // namespace kelvane::database_test
