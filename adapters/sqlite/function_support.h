// What every function added to the engine shares: returning a value, and turning errors into the
// statement's error. No exception passes through the engine.
#pragma once

#include <sqlite3.h>

#include <exception>
#include <new>

#include "adapters/sqlite/database.h"
#include "adapters/sqlite/statement.h"
#include "adapters/tsql/values/conversion.h"

namespace kelvane::sqlite {

inline void SetResult(sqlite3_context* context, const tsql::Datum& value) {
    if (const auto* integer = std::get_if<std::int64_t>(&value)) {
        sqlite3_result_int64(context, *integer);
    } else if (const auto* number = std::get_if<double>(&value)) {
        sqlite3_result_double(context, *number);
    } else if (const auto* text = std::get_if<std::string>(&value)) {
        sqlite3_result_text64(context, text->data(), text->size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    } else {
        sqlite3_result_null(context);
    }
}

// Runs `action` for a function whose user data is the Database.
template <typename Action>
void Guarded(sqlite3_context* context, Action action) noexcept {
    try {
        action();
    } catch (const platform::DatabaseError& error) {
        static_cast<Database*>(sqlite3_user_data(context))->SetFunctionError(error);
        sqlite3_result_error(context, error.what(), -1);
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    } catch (const std::exception& error) {
        sqlite3_result_error(context, error.what(), -1);
    }
}

}  // namespace kelvane::sqlite
