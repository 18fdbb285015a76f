// How an account's tables lie on PostgreSQL.
//
//   dialect                 column's type              remark
//   varchar(n)              varchar(n) collate "C"     n counts code page bytes, so it always fits
//   nvarchar(n)             kelvane_nvarchar_n         a domain over varchar(n) collate "C"
//   bit, tinyint            kelvane_bit, …_tinyint     domains over smallint
//   smallint, int, bigint   the same
//   money                   numeric(19,4)
//   float                   double precision
//   datetime                timestamp(3)
//
// Names keep their letter case. Texts are indexed by kelvane_key(column), which is how the dialect
// compares them. A table whose key is not one whole number has a column kelvane_row besides, which
// numbers its rows in the order in which they came.
#pragma once

#include <string>

#include "adapters/tsql/language/catalog.h"
#include "adapters/tsql/language/definition.h"

namespace kelvane::tsql {

inline constexpr std::string_view kPostgresRowColumn = "kelvane_row";

// The dialect's type of a column whose type the server calls `name`, with a length of `length`
// where it has one; nothing for types that an account's tables do not have.
std::optional<Type> TypeFromPostgres(std::string_view name, int length);

// The statements, as one text. `table`: the existing table of a new index or of one that is
// dropped.
std::string WrittenForPostgres(const Definition& definition, const TableInfo* table);

}  // namespace kelvane::tsql
