// Writes statements for SQLite. What SQLite's own functions cannot do exactly is left to the
// functions named here, which the connection adds (see adapters/sqlite/functions.h):
//
//   kelvane_units(x)                  a stored amount as ten-thousandths
//   kelvane_date(x)                   a stored date in its normal form
//   kelvane_convert(x,from,to,n,s)    a value from type to type, text length n, style s
//   kelvane_store(x,type,n,column)    a value as its column stores it
//   kelvane_arithmetic(op,type,a,b)   + - * / % within one type
//   kelvane_like(pattern,text)        LIKE
//   kelvane_first_key(x), kelvane_last_key(x)
//                                     between which every text equal to x lies, blanks at its end
//                                     removed, where only ASCII's letter case is ignored
//   kelvane_single(x)                 aggregate: the value of at most one row
//   kelvane_sum(x), kelvane_sum_int(x), kelvane_avg(x), kelvane_avg_int(x)
//                                     aggregates of ten-thousandths and of integers
//   collation kelvane_text            how the dialect compares texts
//
// Types are handed over as the numbers of Type::Kind.
#pragma once

#include <string>

#include "adapters/tsql/translation.h"

namespace kelvane::tsql {

class SqliteWriter : public StatementWriter {
public:
    Translated Write(const Statement& statement, bool changeable) override;
};

}  // namespace kelvane::tsql
