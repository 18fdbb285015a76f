#include "tests/support/bare_odbc.h"

#include <sql.h>
#include <sqlext.h>

#include <optional>
#include <stdexcept>

namespace kelvane::support {

namespace {

class Handle {
public:
    Handle(SQLSMALLINT type, SQLHANDLE parent) : mType(type) {
        if (!SQL_SUCCEEDED(SQLAllocHandle(type, parent, &mHandle))) {
            throw std::runtime_error("no ODBC handle");
        }
    }
    ~Handle() { SQLFreeHandle(mType, mHandle); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    SQLHANDLE Get() const { return mHandle; }

    void Require(SQLRETURN outcome) const {
        if (SQL_SUCCEEDED(outcome) || outcome == SQL_NO_DATA) return;
        SQLCHAR state[6] = {};
        SQLCHAR text[512] = {};
        SQLINTEGER native = 0;
        SQLSMALLINT length = 0;
        SQLGetDiagRec(mType, mHandle, 1, state, &native, text, sizeof text, &length);
        throw std::runtime_error(reinterpret_cast<const char*>(text));
    }

private:
    SQLSMALLINT mType;
    SQLHANDLE mHandle = SQL_NULL_HANDLE;
};

SQLCHAR* Chars(const std::string& text) {
    return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text.c_str()));
}

}  // namespace

struct BareConnection::Handles {
    Handle environment{SQL_HANDLE_ENV, SQL_NULL_HANDLE};
    std::optional<Handle> connection;
};

BareConnection::BareConnection(const std::string& connectionString)
    : mHandles(std::make_unique<Handles>()) {
    const Handle& environment = mHandles->environment;
    environment.Require(SQLSetEnvAttr(environment.Get(), SQL_ATTR_ODBC_VERSION,
                                      reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0));
    const Handle& connection = mHandles->connection.emplace(SQL_HANDLE_DBC, environment.Get());
    connection.Require(SQLDriverConnect(connection.Get(), nullptr, Chars(connectionString), SQL_NTS,
                                        nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT));
}

BareConnection::~BareConnection() {
    SQLDisconnect(mHandles->connection->Get());
}

std::string BareConnection::Ask(const std::string& statement) const {
    const Handle call(SQL_HANDLE_STMT, mHandles->connection->Get());
    call.Require(SQLExecDirect(call.Get(), Chars(statement), SQL_NTS));
    SQLSMALLINT columns = 0;
    SQLNumResultCols(call.Get(), &columns);
    char field[256] = {};
    SQLLEN length = 0;
    if (columns > 0 && SQL_SUCCEEDED(SQLFetch(call.Get())) &&
        SQL_SUCCEEDED(SQLGetData(call.Get(), 1, SQL_C_CHAR, field, sizeof field, &length))) {
        return field;
    }
    return {};
}

std::string RunBare(const std::string& connectionString, const std::string& statement) {
    return BareConnection(connectionString).Ask(statement);
}

}  // namespace kelvane::support
