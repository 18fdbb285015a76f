#include "adapters/odbc/result_reader.h"

#include <algorithm>
#include <limits>

#include "adapters/odbc/diagnostics.h"
#include "platform/date_time.h"

namespace kelvane::odbc {

namespace {

using Kind = tsql::Type::Kind;

constexpr SQLSMALLINT kMoneyDecimals = 4;
constexpr SQLUINTEGER kNanosecondsOfMillisecond = 1'000'000;

std::string DateText(const SQL_TIMESTAMP_STRUCT& date) {
    const SQLUINTEGER milliseconds =
        (date.fraction + kNanosecondsOfMillisecond / 2) / kNanosecondsOfMillisecond;
    const platform::DateTime value{date.year,
                                   date.month,
                                   date.day,
                                   date.hour,
                                   date.minute,
                                   date.second,
                                   static_cast<int>(std::min<SQLUINTEGER>(milliseconds, 999))};
    return value.FullText();
}

tsql::ResultColumn Described(SQLHANDLE statement, SQLUSMALLINT number) {
    SQLWCHAR name[256] = {};
    SQLSMALLINT length = 0;
    SQLSMALLINT type = 0;
    SQLULEN size = 0;
    SQLSMALLINT decimals = 0;
    SQLSMALLINT nullable = 0;
    const SQLRETURN code =
        SQLDescribeColW(statement, number, name, static_cast<SQLSMALLINT>(std::size(name)), &length,
                        &type, &size, &decimals, &nullable);
    if (!SQL_SUCCEEDED(code)) throw DriverFailure(ReportedError(SQL_HANDLE_STMT, statement));
    tsql::ResultColumn column;
    FromWide(name, std::char_traits<SQLWCHAR>::length(name), column.name);
    column.type = TypeOfColumn(type, size, decimals);
    return column;
}

}  // namespace

tsql::Type TypeOfColumn(SQLSMALLINT sqlType, SQLULEN size, SQLSMALLINT decimals) {
    // A length beyond what a column can be declared with means no limit.
    constexpr SQLULEN kMaxLength = 8000;
    const int length = size <= kMaxLength ? static_cast<int>(size) : 0;
    switch (sqlType) {
        case SQL_BIT:
            return {Kind::Bit, 0};
        case SQL_TINYINT:
            return {Kind::TinyInt, 0};
        case SQL_SMALLINT:
            return {Kind::SmallInt, 0};
        case SQL_INTEGER:
            return {Kind::Int, 0};
        case SQL_BIGINT:
            return {Kind::BigInt, 0};
        case SQL_FLOAT:
        case SQL_REAL:
        case SQL_DOUBLE:
            return {Kind::Float, 0};
        case SQL_DECIMAL:
        case SQL_NUMERIC:
            // More decimals than an amount has stay exact as a text.
            return {decimals <= kMoneyDecimals ? Kind::Money : Kind::VarChar, 0};
        case SQL_DATETIME:
        case SQL_TIMESTAMP:
        case SQL_TYPE_DATE:
        case SQL_TYPE_TIMESTAMP:
            return {Kind::DateTime, 0};
        case SQL_WCHAR:
        case SQL_WVARCHAR:
            return {Kind::NVarChar, length};
        case SQL_WLONGVARCHAR:
            return {Kind::NVarChar, 0};
        case SQL_CHAR:
        case SQL_VARCHAR:
            return {Kind::VarChar, length};
        default:
            return {Kind::VarChar, 0};
    }
}

SQLRETURN ResultReader::GetData(SQLUSMALLINT column, SQLSMALLINT type, SQLPOINTER value,
                                SQLLEN size) {
    mIndicator = 0;
    const SQLRETURN code = SQLGetData(mStatement, column, type, value, size, &mIndicator);
    if (SQL_SUCCEEDED(code) || code == SQL_NO_DATA) return code;
    throw DriverFailure(ReportedError(SQL_HANDLE_STMT, mStatement));
}

// False for Null.
bool ResultReader::ReadWideText(SQLUSMALLINT column) {
    constexpr std::size_t kUnits = kPiece - 1;  // the driver ends every piece with a zero
    mWideText.clear();
    for (;;) {
        const SQLRETURN code = GetData(column, SQL_C_WCHAR, mWidePiece.data(),
                                       static_cast<SQLLEN>(kPiece * sizeof(SQLWCHAR)));
        if (code == SQL_NO_DATA) break;
        if (mIndicator == SQL_NULL_DATA) return false;
        const bool whole = mIndicator != SQL_NO_TOTAL &&
                           mIndicator <= static_cast<SQLLEN>(kUnits * sizeof(SQLWCHAR));
        const std::size_t units =
            whole ? static_cast<std::size_t>(mIndicator) / sizeof(SQLWCHAR) : kUnits;
        if (whole && mWideText.empty()) {
            FromWide(mWidePiece.data(), units, mText);
            return true;
        }
        mWideText.append(mWidePiece.data(), units);
        if (whole || code == SQL_SUCCESS) break;
    }
    FromWide(mWideText.data(), mWideText.size(), mText);
    return true;
}

bool ResultReader::ReadText(SQLUSMALLINT column) {
    constexpr std::size_t kBytes = kPiece - 1;
    mText.clear();
    for (;;) {
        const SQLRETURN code =
            GetData(column, SQL_C_CHAR, mPiece.data(), static_cast<SQLLEN>(kPiece));
        if (code == SQL_NO_DATA) break;
        if (mIndicator == SQL_NULL_DATA) return false;
        const bool whole = mIndicator != SQL_NO_TOTAL && mIndicator <= static_cast<SQLLEN>(kBytes);
        mText.append(mPiece.data(), whole ? static_cast<std::size_t>(mIndicator) : kBytes);
        if (whole || code == SQL_SUCCESS) break;
    }
    return true;
}

void ResultReader::ReadRow(ResultRows& rows) {
    rows.BeginRow();
    for (std::size_t i = 0; i < rows.columns.size(); ++i) {
        const auto column = static_cast<SQLUSMALLINT>(i + 1);
        const tsql::Type type = rows.columns[i].type;
        if (type.IsText() || type.kind == Kind::Money || type.kind == Kind::Null) {
            const bool isText = type.IsText() && mWide;
            if (isText ? ReadWideText(column) : ReadText(column)) {
                rows.AppendText(mText);
            } else {
                rows.Append({});
            }
        } else if (type.kind == Kind::Float) {
            SQLDOUBLE number = 0;
            GetData(column, SQL_C_DOUBLE, &number, sizeof number);
            rows.Append(mIndicator == SQL_NULL_DATA ? tsql::Datum() : tsql::Datum(number));
        } else if (type.kind == Kind::DateTime) {
            SQL_TIMESTAMP_STRUCT date = {};
            GetData(column, SQL_C_TYPE_TIMESTAMP, &date, sizeof date);
            rows.Append(mIndicator == SQL_NULL_DATA ? tsql::Datum() : tsql::Datum(DateText(date)));
        } else {
            SQLBIGINT integer = 0;
            GetData(column, SQL_C_SBIGINT, &integer, sizeof integer);
            rows.Append(mIndicator == SQL_NULL_DATA
                            ? tsql::Datum()
                            : tsql::Datum(static_cast<std::int64_t>(integer)));
        }
    }
}

void ResultReader::Read(SQLHANDLE statement, SQLSMALLINT columns, const WantedRows& wanted,
                        bool wide, ResultRows& rows) {
    mStatement = statement;
    mWide = wide;
    rows.hasResult = true;
    rows.columns = wanted.columns;
    rows.hiddenColumns = wanted.hiddenColumns;
    for (auto i = rows.columns.size(); i < static_cast<std::size_t>(columns); ++i) {
        rows.columns.push_back(Described(statement, static_cast<SQLUSMALLINT>(i + 1)));
    }
    for (;;) {
        const SQLRETURN code = SQLFetch(statement);
        if (code == SQL_NO_DATA) return;
        if (!SQL_SUCCEEDED(code)) throw DriverFailure(ReportedError(SQL_HANDLE_STMT, statement));
        ReadRow(rows);
    }
}

}  // namespace kelvane::odbc
