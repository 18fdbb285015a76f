#include "adapters/sqlite/statement.h"

#include "adapters/sqlite/database.h"

namespace kelvane::sqlite {

Statement::Statement(Database& database, std::string_view text, bool lasting)
    : mDatabase(&database) {
    const unsigned flags = lasting ? SQLITE_PREPARE_PERSISTENT : 0U;
    const int code = sqlite3_prepare_v3(database.Handle(), text.data(),
                                        static_cast<int>(text.size()), flags, &mHandle, nullptr);
    if (code != SQLITE_OK) database.Fail(code);
}

Statement::~Statement() {
    sqlite3_finalize(mHandle);
}

Statement& Statement::operator=(Statement&& other) noexcept {
    std::swap(mDatabase, other.mDatabase);
    std::swap(mHandle, other.mHandle);
    std::swap(mRuns, other.mRuns);
    return *this;
}

void Statement::Bind(int place, const tsql::Datum& value) {
    if (const auto* integer = std::get_if<std::int64_t>(&value)) {
        sqlite3_bind_int64(mHandle, place, *integer);
    } else if (const auto* number = std::get_if<double>(&value)) {
        sqlite3_bind_double(mHandle, place, *number);
    } else if (const auto* text = std::get_if<std::string>(&value)) {
        sqlite3_bind_text64(mHandle, place, text->data(), text->size(), SQLITE_STATIC, SQLITE_UTF8);
    } else {
        sqlite3_bind_null(mHandle, place);
    }
}

int Statement::Step() {
    if (!std::exchange(mRuns, true)) mDatabase->StartStatement();
    return sqlite3_step(mHandle);
}

void Statement::Reset() {
    mRuns = false;
    sqlite3_reset(mHandle);
}

std::string Statement::Text(int index) const {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(mHandle, index));
    if (text == nullptr) return {};
    return {text, static_cast<std::size_t>(sqlite3_column_bytes(mHandle, index))};
}

bool Statement::WasPreparedAgain() {
    return sqlite3_stmt_status(mHandle, SQLITE_STMTSTATUS_REPREPARE, 1) > 0;
}

tsql::Datum DatumOf(sqlite3_value* value) {
    switch (sqlite3_value_type(value)) {
        case SQLITE_INTEGER:
            return sqlite3_value_int64(value);
        case SQLITE_FLOAT:
            return sqlite3_value_double(value);
        case SQLITE_NULL:
            return {};
        default: {
            const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
            if (text == nullptr) return std::string();
            return std::string(text, static_cast<std::size_t>(sqlite3_value_bytes(value)));
        }
    }
}

}  // namespace kelvane::sqlite
