// The dialect's statements that define tables: "create table", "create index", "drop table".
#pragma once

#include <string>
#include <vector>

#include "adapters/tsql/language/lexer.h"
#include "adapters/tsql/language/type.h"

namespace kelvane::tsql {

struct Definition {
    enum class Kind { CreateTable, CreateIndex, DropTable };

    struct Column {
        std::string name;
        Type type;
        bool nullable = true;
    };

    Kind kind = Kind::CreateTable;
    std::string table;
    std::vector<Column> columns;            // of a new table
    std::vector<std::string> key;           // of a new table; may be empty
    std::string index;                      // the new index's name
    std::vector<std::string> indexColumns;  // of a new index
    bool unique = false;                    // of a new index
};

// Whether the batch defines tables. It does nothing else then.
bool IsDefinition(const LexedText& text);

// Reads such a batch. Throws DatabaseError for bad syntax and for what an account's tables do not
// have: defaults, checks, foreign keys, types.
std::vector<Definition> ParseDefinitions(const LexedText& text);

}  // namespace kelvane::tsql
