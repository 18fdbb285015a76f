// How an account lies in its SQLite file. The file is a plain one: built-in types, collations and
// functions only, so that any other tool can read, query and write it.
//
// What the dialect's types are declared as, and how their values are stored:
//
//   dialect                        declared        stored
//   varchar(n), nvarchar(n)        varchar(n) …    TEXT, trailing blanks kept
//   text, ntext                    varchar …       TEXT of any length
//   bit, tinyint, smallint, int    the same        INTEGER
//   money                          money text      TEXT, exact: "1234.5000"
//   float                          float           REAL
//   datetime                       datetime text   TEXT "yyyy-mm-dd hh:mm:ss.mmm"
//
// Text columns are indexed by `rtrim(column) collate nocase`, which is how the dialect compares
// them: without regard to letter case and trailing blanks.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "adapters/tsql/language/table_description.h"
#include "platform/database.h"

namespace kelvane::sqlite {

// What makes a SQLite file an account: its application id, and the version of this layout.
inline constexpr int kApplicationId = 0x4B4C5645;
inline constexpr int kLayoutVersion = 1;

using tsql::ColumnDescription;
using tsql::TableDescription;

// The declaration of a column of dialect type `type`. Throws std::invalid_argument for a type that
// an account cannot store.
std::string DeclaredType(std::string_view type);

// The statements in SQLite's own dialect that create the table, its key and its indexes. Key
// columns never take Null. Throws std::invalid_argument for an unknown type or column.
std::vector<std::string> CreateStatements(const TableDescription& table);

// Creates the account file `path` with these tables, ready to be opened by a connection: all of
// it or, when an error is thrown, no file. Throws platform::DatabaseError that names the file,
// also when a file of that name exists.
void CreateAccount(const std::string& path, const std::vector<TableDescription>& tables);

}  // namespace kelvane::sqlite
