// What an action fails with.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/database.h"

namespace kelvane::database_test {

// The DatabaseError that `action` throws, if any.
inline std::optional<platform::DatabaseError> FailureOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const platform::DatabaseError& error) {
        return error;
    }
    return std::nullopt;
}

// Its native code; 0 when there is none.
inline int ErrorOf(const std::function<void()>& action) {
    const auto failure = FailureOf(action);
    return failure ? failure->NativeCode() : 0;
}

// Its text; empty when there is none.
inline std::string TextOfError(const std::function<void()>& action) {
    const auto failure = FailureOf(action);
    return failure ? failure->what() : "";
}

}  // namespace kelvane::database_test
