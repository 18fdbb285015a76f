// Reads a result of the driver's whole: every column as the C type that holds it exactly.
#pragma once

#include <string>
#include <vector>

#include "adapters/odbc/odbc_api.h"
#include "adapters/odbc/result_rows.h"
#include "adapters/odbc/wide_text.h"

namespace kelvane::odbc {

// What is known of a result before it comes.
struct WantedRows {
    std::vector<tsql::ResultColumn> columns;  // empty: as the driver describes them
    int hiddenColumns = 0;
};

class ResultReader {
public:
    // Appends the rows of the result that `statement` stands on, with `columns` columns. `wide`:
    // the driver gives texts in UTF-16, else in UTF-8. Throws DriverFailure.
    void Read(SQLHANDLE statement, SQLSMALLINT columns, const WantedRows& wanted, bool wide,
              ResultRows& rows);

private:
    SQLRETURN GetData(SQLUSMALLINT column, SQLSMALLINT type, SQLPOINTER value, SQLLEN size);
    void ReadRow(ResultRows& rows);
    bool ReadText(SQLUSMALLINT column);
    bool ReadWideText(SQLUSMALLINT column);

    static constexpr std::size_t kPiece = 8192;  // units of a text that are read at once

    SQLHANDLE mStatement = SQL_NULL_HANDLE;
    bool mWide = true;
    SQLLEN mIndicator = 0;
    std::vector<SQLWCHAR> mWidePiece = std::vector<SQLWCHAR>(kPiece);
    std::vector<char> mPiece = std::vector<char>(kPiece);
    WideText mWideText;
    std::string mText;
};

// The dialect's type for a column as a driver describes it, and whether it may hold long texts.
tsql::Type TypeOfColumn(SQLSMALLINT sqlType, SQLULEN size, SQLSMALLINT decimals);

}  // namespace kelvane::odbc
