// A table as an account's creator describes it, for whatever engine the account lies on.
#pragma once

#include <string>
#include <vector>

namespace kelvane::tsql {

struct ColumnDescription {
    std::string name;
    std::string type;  // in the dialect: "varchar(60)", "int", "bit", "money", "float", "datetime"
    bool nullable = true;
};

struct TableDescription {
    std::string name;
    std::vector<ColumnDescription> columns;
    std::vector<std::string> key;                   // may be empty
    std::vector<std::vector<std::string>> indexes;  // each a list of columns
};

}  // namespace kelvane::tsql
