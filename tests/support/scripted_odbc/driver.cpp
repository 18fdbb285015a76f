// The scripted driver: the entry points that a driver manager needs to run statements, over a play.
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <map>

#include "adapters/odbc/odbc_api.h"
#include "adapters/odbc/wide_text.h"
#include "tests/support/scripted_odbc/play.h"

// The entry points that take texts have other names when the texts are wide.
#ifdef KELVANE_NARROW_DRIVER
#define ENTRY(name) name
#else
#define ENTRY(name) name##W
#endif

namespace kelvane::support {
namespace {

#ifdef KELVANE_NARROW_DRIVER
using Unit = SQLCHAR;
using Units = std::basic_string<char>;

Units ToUnits(const std::string& text) {
    return text;
}

std::string Text(const Unit* text, SQLINTEGER length) {
    const std::string whole = reinterpret_cast<const char*>(text);
    return length < 0 ? whole : whole.substr(0, static_cast<std::size_t>(length));
}
#else
using Unit = SQLWCHAR;
using Units = odbc::WideText;

Units ToUnits(const std::string& text) {
    return odbc::ToWide(text);
}

std::string Text(const Unit* text, SQLINTEGER length) {
    const std::size_t units =
        length < 0 ? std::char_traits<Unit>::length(text) : static_cast<std::size_t>(length);
    std::string result;
    odbc::FromWide(text, units, result);
    return result;
}
#endif

struct Handle {
    SQLSMALLINT type = 0;
    std::deque<PlayedError> errors;
};

// One connection at a time is enough, and its statement.
struct Stage {
    Play play;
    std::string log;
    bool dead = false;
    std::deque<PlayedResult> results;  // the current one is the first
    std::size_t row = 0;               // counts from 1; 0: before the first
    std::map<int, std::size_t> given;  // how much of a column's text has been fetched
};

Stage& TheStage() {
    static Stage stage;
    return stage;
}

void Note(const std::string& line) {
    TheStage().log += line + '\n';
}

SQLRETURN Fail(SQLHANDLE handle, PlayedError error) {
    static_cast<Handle*>(handle)->errors.push_back(std::move(error));
    return SQL_ERROR;
}

void Clear(SQLHANDLE handle) {
    static_cast<Handle*>(handle)->errors.clear();
}

SQLRETURN Lost(SQLHANDLE handle) {
    return Fail(handle, {"08S01", 10054, "[Own][Scripted]The connection is dead"});
}

// Writes a text with a zero behind it, cut where it must be; tells its whole length in units.
template <typename Length = SQLSMALLINT>
Length Give(const std::string& value, Unit* target, SQLLEN room) {
    const Units units = ToUnits(value);
    if (target != nullptr && room > 0) {
        const std::size_t length = std::min(units.size(), static_cast<std::size_t>(room) - 1);
        std::copy_n(units.begin(), length, target);
        target[length] = 0;
    }
    return static_cast<Length>(units.size());
}

SQLRETURN Begun(SQLHANDLE statement) {
    Stage& stage = TheStage();
    stage.row = 0;
    if (stage.results.empty()) return SQL_SUCCESS;
    const PlayedResult& result = stage.results.front();
    stage.dead = stage.dead || result.dies;
    if (result.error) return Fail(statement, *result.error);
    if (!result.warning) return SQL_SUCCESS;
    static_cast<Handle*>(statement)->errors.push_back(*result.warning);
    return SQL_SUCCESS_WITH_INFO;
}

SQLRETURN Run(SQLHANDLE statement, const std::string& text) {
    Stage& stage = TheStage();
    Note("run " + text);
    Clear(statement);
    stage.results.clear();
    if (stage.dead) return Lost(statement);
    if (stage.play.always.count(text) != 0) return SQL_SUCCESS;
    if (stage.play.calls.empty() || stage.play.calls.front().kind != "run" ||
        stage.play.calls.front().statement != text) {
        return Fail(statement, {"HY000", 1, "The play does not go on with: " + text});
    }
    stage.results = std::move(stage.play.calls.front().results);
    stage.play.calls.pop_front();
    return Begun(statement);
}

// The error the play has for the call, if it is the next one.
std::optional<PlayedError> Next(const std::string& kind) {
    auto& calls = TheStage().play.calls;
    if (calls.empty() || calls.front().kind != kind) return std::nullopt;
    std::optional<PlayedError> error = calls.front().error;
    calls.pop_front();
    return error;
}

SQLRETURN Connect(SQLHANDLE connection, const std::string& text) {
    Note("connect " + text);
    Clear(connection);
    if (const auto error = Next("refuse")) return Fail(connection, *error);
    TheStage().dead = false;
    return SQL_SUCCESS;
}

std::string Info(SQLUSMALLINT what) {
    if (what == SQL_DBMS_NAME) return TheStage().play.engine;
    return what == SQL_DRIVER_ODBC_VER ? "03.52" : "";
}

SQLSMALLINT TypeNamed(const std::string& name) {
    static const std::map<std::string, SQLSMALLINT> kTypes = {
        {"BIT", SQL_BIT},           {"TINYINT", SQL_TINYINT},  {"SMALLINT", SQL_SMALLINT},
        {"INTEGER", SQL_INTEGER},   {"BIGINT", SQL_BIGINT},    {"REAL", SQL_REAL},
        {"DOUBLE", SQL_DOUBLE},     {"FLOAT", SQL_FLOAT},      {"DECIMAL", SQL_DECIMAL},
        {"NUMERIC", SQL_NUMERIC},   {"DATE", SQL_TYPE_DATE},   {"TIMESTAMP", SQL_TYPE_TIMESTAMP},
        {"CHAR", SQL_CHAR},         {"VARCHAR", SQL_VARCHAR},  {"WCHAR", SQL_WCHAR},
        {"WVARCHAR", SQL_WVARCHAR}, {"LONG", SQL_LONGVARCHAR}, {"WLONG", SQL_WLONGVARCHAR},
        {"GUID", SQL_GUID},         {"BINARY", SQL_VARBINARY},
    };
    return kTypes.at(name);
}

const std::vector<PlayedColumn>& Columns() {
    static const std::vector<PlayedColumn> kNone;
    const auto& results = TheStage().results;
    return results.empty() ? kNone : results.front().columns;
}

template <typename Piece>
SQLRETURN GivePiece(int column, const std::basic_string<Piece>& text, SQLPOINTER target,
                    SQLLEN size, SQLLEN* indicator) {
    const std::size_t given = TheStage().given[column];
    if (given > 0 && given >= text.size()) return SQL_NO_DATA;
    const std::size_t left = text.size() - given;
    const std::size_t room = static_cast<std::size_t>(size) / sizeof(Piece) - 1;
    const std::size_t length = std::min(left, room);
    auto* units = static_cast<Piece*>(target);
    std::copy_n(text.begin() + static_cast<std::ptrdiff_t>(given), length, units);
    units[length] = 0;
    TheStage().given[column] = given + std::max<std::size_t>(length, 1);
    const bool hidden = TheStage().play.inPieces && left > room;
    *indicator = hidden ? SQL_NO_TOTAL : static_cast<SQLLEN>(left * sizeof(Piece));
    return left > room ? SQL_SUCCESS_WITH_INFO : SQL_SUCCESS;
}

SQLRETURN GiveDate(const std::string& text, SQLPOINTER target) {
    SQL_TIMESTAMP_STRUCT date = {};
    unsigned fraction = 0;
    int year = 0;
    std::sscanf(text.c_str(), "%d-%hu-%hu %hu:%hu:%hu.%u", &year, &date.month, &date.day,
                &date.hour, &date.minute, &date.second, &fraction);
    date.year = static_cast<SQLSMALLINT>(year);
    date.fraction = fraction;  // nanoseconds, as they stand in the play
    std::memcpy(target, &date, sizeof date);
    return SQL_SUCCESS;
}

}  // namespace
}  // namespace kelvane::support

using namespace kelvane;           // NOLINT(google-build-using-namespace)
using namespace kelvane::support;  // NOLINT(google-build-using-namespace)

extern "C" {

// For the test that loads the driver as well.
void ScriptedOdbcPlay(const char* script) {
    TheStage() = {};
    TheStage().play = ReadPlay(script);
}
const char* ScriptedOdbcLog() {
    return TheStage().log.c_str();
}
int ScriptedOdbcLeft() {
    return static_cast<int>(TheStage().play.calls.size());
}

SQLRETURN SQL_API SQLAllocHandle(SQLSMALLINT type, SQLHANDLE, SQLHANDLE* result) {
    *result = new Handle{type, {}};
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLFreeHandle(SQLSMALLINT, SQLHANDLE handle) {
    delete static_cast<Handle*>(handle);
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLSetEnvAttr(SQLHENV, SQLINTEGER, SQLPOINTER, SQLINTEGER) {
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLDisconnect(SQLHDBC) {
    Note("disconnect");
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLSetConnectAttr(SQLHDBC connection, SQLINTEGER what, SQLPOINTER value,
                                    SQLINTEGER) {
    Clear(connection);
    const auto number = reinterpret_cast<std::uintptr_t>(value);
    if (what == SQL_ATTR_LOGIN_TIMEOUT) Note("login timeout " + std::to_string(number));
    if (what != SQL_ATTR_AUTOCOMMIT) return SQL_SUCCESS;
    Note(number == SQL_AUTOCOMMIT_ON ? "autocommit on" : "autocommit off");
    return TheStage().dead ? Lost(connection) : SQL_SUCCESS;
}

SQLRETURN SQL_API SQLGetConnectAttr(SQLHDBC, SQLINTEGER what, SQLPOINTER value, SQLINTEGER,
                                    SQLINTEGER*) {
    if (what != SQL_ATTR_CONNECTION_DEAD) return SQL_ERROR;
    *static_cast<SQLUINTEGER*>(value) = TheStage().dead ? SQL_CD_TRUE : SQL_CD_FALSE;
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLSetStmtAttr(SQLHSTMT, SQLINTEGER what, SQLPOINTER value, SQLINTEGER) {
    if (what == SQL_ATTR_QUERY_TIMEOUT) {
        Note("query timeout " + std::to_string(reinterpret_cast<std::uintptr_t>(value)));
    }
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLGetStmtAttr(SQLHSTMT, SQLINTEGER, SQLPOINTER value, SQLINTEGER, SQLINTEGER*) {
    static Handle descriptor;
    *static_cast<SQLPOINTER*>(value) = &descriptor;
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLEndTran(SQLSMALLINT, SQLHANDLE connection, SQLSMALLINT how) {
    Clear(connection);
    const std::string kind = how == SQL_COMMIT ? "commit" : "rollback";
    Note(kind);
    if (const auto error = Next(kind)) return Fail(connection, *error);
    return TheStage().dead ? Lost(connection) : SQL_SUCCESS;
}

SQLRETURN SQL_API SQLNumResultCols(SQLHSTMT, SQLSMALLINT* count) {
    *count = static_cast<SQLSMALLINT>(Columns().size());
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLRowCount(SQLHSTMT, SQLLEN* count) {
    const auto& results = TheStage().results;
    *count = results.empty() ? -1 : results.front().count;
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLMoreResults(SQLHSTMT statement) {
    Clear(statement);
    auto& results = TheStage().results;
    if (!results.empty()) results.pop_front();
    return results.empty() ? SQL_NO_DATA : Begun(statement);
}

SQLRETURN SQL_API SQLFreeStmt(SQLHSTMT, SQLUSMALLINT) {
    TheStage().results.clear();
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLFetch(SQLHSTMT statement) {
    Stage& stage = TheStage();
    Clear(statement);
    stage.given.clear();
    return ++stage.row > stage.results.front().rows.size() ? SQL_NO_DATA : SQL_SUCCESS;
}

SQLRETURN SQL_API SQLGetData(SQLHSTMT statement, SQLUSMALLINT column, SQLSMALLINT type,
                             SQLPOINTER target, SQLLEN size, SQLLEN* indicator) {
    Stage& stage = TheStage();
    const PlayedResult& result = stage.results.front();
    const auto& value = result.rows.at(stage.row - 1).at(column - 1U);
    const std::string& columnType = result.columns.at(column - 1U).type;
    if (!value) {
        *indicator = SQL_NULL_DATA;
        return SQL_SUCCESS;
    }
    *indicator = 0;
    switch (type) {
        case SQL_C_SBIGINT: {
            const long long integer = std::stoll(*value);
            std::memcpy(target, &integer, sizeof integer);
            return SQL_SUCCESS;
        }
        case SQL_C_DOUBLE: {
            // An exact number is no floating one, not even on its way.
            if (columnType == "DECIMAL" || columnType == "NUMERIC") break;
            const double number = std::stod(*value);
            std::memcpy(target, &number, sizeof number);
            return SQL_SUCCESS;
        }
        case SQL_C_TYPE_TIMESTAMP:
            return GiveDate(*value, target);
        case SQL_C_CHAR:
            return GivePiece(column, *value, target, size, indicator);
#ifndef KELVANE_NARROW_DRIVER
        case SQL_C_WCHAR:
            return GivePiece(column, odbc::ToWide(*value), target, size, indicator);
#endif
        default:
            break;
    }
    return Fail(statement, {"07006", 0, "No conversion to C type " + std::to_string(type)});
}

SQLRETURN SQL_API ENTRY(SQLDriverConnect)(SQLHDBC connection, SQLHWND, Unit* text,
                                          SQLSMALLINT length, Unit*, SQLSMALLINT, SQLSMALLINT*,
                                          SQLUSMALLINT) {
    return Connect(connection, Text(text, length));
}

SQLRETURN SQL_API ENTRY(SQLGetInfo)(SQLHDBC, SQLUSMALLINT what, SQLPOINTER target, SQLSMALLINT size,
                                    SQLSMALLINT* length) {
    const auto room = static_cast<SQLLEN>(size / static_cast<SQLSMALLINT>(sizeof(Unit)));
    const SQLSMALLINT units = Give(Info(what), static_cast<Unit*>(target), room);
    if (length != nullptr) *length = static_cast<SQLSMALLINT>(units * sizeof(Unit));
    return SQL_SUCCESS;
}

SQLRETURN SQL_API ENTRY(SQLNativeSql)(SQLHDBC, Unit* text, SQLINTEGER length, Unit* target,
                                      SQLINTEGER size, SQLINTEGER* written) {
    const auto units = Give<SQLINTEGER>(Text(text, length), target, size);
    if (written != nullptr) *written = units;
    return SQL_SUCCESS;
}

SQLRETURN SQL_API ENTRY(SQLExecDirect)(SQLHSTMT statement, Unit* text, SQLINTEGER length) {
    return Run(statement, Text(text, length));
}

SQLRETURN SQL_API ENTRY(SQLDescribeCol)(SQLHSTMT, SQLUSMALLINT number, Unit* name, SQLSMALLINT size,
                                        SQLSMALLINT* length, SQLSMALLINT* type, SQLULEN* columnSize,
                                        SQLSMALLINT* decimals, SQLSMALLINT* nullable) {
    const PlayedColumn& column = Columns().at(number - 1U);
    *length = Give(column.name, name, size);
    *type = TypeNamed(column.type);
    *columnSize = static_cast<SQLULEN>(column.size);
    *decimals = static_cast<SQLSMALLINT>(column.decimals);
    *nullable = SQL_NULLABLE;
    return SQL_SUCCESS;
}

SQLRETURN SQL_API ENTRY(SQLGetDiagRec)(SQLSMALLINT, SQLHANDLE handle, SQLSMALLINT number,
                                       Unit* state, SQLINTEGER* native, Unit* text,
                                       SQLSMALLINT size, SQLSMALLINT* length) {
    const auto& errors = static_cast<Handle*>(handle)->errors;
    if (number < 1 || static_cast<std::size_t>(number) > errors.size()) return SQL_NO_DATA;
    const PlayedError& error = errors[static_cast<std::size_t>(number) - 1];
    Give(error.state, state, 6);
    *native = error.native;
    const SQLSMALLINT units = Give(error.text, text, size);
    if (length != nullptr) *length = units;
    return SQL_SUCCESS;
}

// The driver manager asks for it beside the records; there is nothing more to tell.
SQLRETURN SQL_API ENTRY(SQLGetDiagField)(SQLSMALLINT, SQLHANDLE, SQLSMALLINT, SQLSMALLINT,
                                         SQLPOINTER, SQLSMALLINT, SQLSMALLINT*) {
    return SQL_NO_DATA;
}

#ifndef KELVANE_NARROW_DRIVER

SQLRETURN SQL_API SQLSetConnectAttrW(SQLHDBC connection, SQLINTEGER what, SQLPOINTER value,
                                     SQLINTEGER length) {
    return SQLSetConnectAttr(connection, what, value, length);
}

SQLRETURN SQL_API SQLGetConnectAttrW(SQLHDBC connection, SQLINTEGER what, SQLPOINTER value,
                                     SQLINTEGER size, SQLINTEGER* length) {
    return SQLGetConnectAttr(connection, what, value, size, length);
}

#endif

}  // extern "C"
