// Writes statements for PostgreSQL. What its own functions cannot do as the dialect does is left to
// functions in the account's schema (see adapters/odbc/postgres_functions.h):
//
//   kelvane_fold(x), kelvane_key(x)   a text as it is compared: without letter case, and the same
//                                     without trailing blanks
//   kelvane_pattern(x)                the regular expression of a LIKE pattern
//   kelvane_range(x,type)             a number that must fit the type
//   kelvane_product(a,b)              a product of amounts
//   kelvane_store(x,n,type,column)    a text as its column stores it
//   kelvane_to_…, kelvane_…_text, kelvane_day, kelvane_cut
//                                     conversions
//
// A text with "$1", "$2" … in it becomes a statement by FilledForPostgres().
#pragma once

#include <string>
#include <vector>

#include "adapters/tsql/translation.h"

namespace kelvane::tsql {

// Which rows of a select are locked against other writers until the transaction ends.
struct RowLocks {
    bool held = false;    // those of tables with a hint that holds them
    bool all = false;     // all of them
    bool only = false;    // the locks alone are wanted, no result; a statement without any is empty
    bool noWait = false;  // fail at once when another transaction has one of them

    friend bool operator==(const RowLocks&, const RowLocks&) = default;
};

class PostgresWriter : public StatementWriter {
public:
    explicit PostgresWriter(RowLocks locks = {}) : mLocks(locks) {}

    Translated Write(const Statement& statement, bool changeable) override;

private:
    Translated WriteSelect(const Select& select, bool changeable) const;
    std::string LockText(const Select& select) const;

    RowLocks mLocks;
};

// A value of `type` as the server reads it. Amounts may be texts or ten-thousandths.
std::string PostgresLiteral(const Datum& value, Type type);

// The statement with its values. Throws as conversions do.
std::string FilledForPostgres(const Translated& translated, const std::vector<Literal>& literals);

}  // namespace kelvane::tsql
