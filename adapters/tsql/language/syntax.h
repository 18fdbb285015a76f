// The syntax tree of a statement. The parser builds it, the analyzer fills in what the catalog
// tells (tables, columns, types, conversions), a writer turns it into another engine's text.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "adapters/tsql/language/built_in.h"
#include "adapters/tsql/language/catalog.h"
#include "adapters/tsql/language/lexer.h"
#include "adapters/tsql/language/type.h"

namespace kelvane::tsql {

struct Select;
struct Expression;
using ExpressionPtr = std::unique_ptr<Expression>;

struct Expression {
    enum class Kind {
        // Values
        Literal,
        Null,
        Column,
        Arithmetic,   // symbol, two operands
        Concatenate,  // two operands
        Function,     // builtIn
        Aggregate,    // builtIn; no operand: count(*)
        Convert,      // operand to `type`, explicit or put in by the analyzer
        Query,        // the one value of a sub-query
        // Conditions
        Compare,  // symbol, two operands
        And,
        Or,
        Not,
        IsNull,
        Like,     // text, pattern
        Between,  // operand, low, high
        InList,   // operand, values
        InQuery,  // operand, query
        Exists,
    };

    explicit Expression(Kind aKind) : kind(aKind) {}

    bool IsCondition() const { return kind >= Kind::Compare; }

    Kind kind;
    std::string name;  // of a call in lower case
    std::string qualifier;
    std::string symbol;
    const BuiltInInfo* builtIn = nullptr;  // of a call; null: none that is known
    bool negated = false;   // of a literal: its minus sign; of a condition: "not" inside
    bool distinct = false;  // of an aggregate
    std::size_t literal = 0;
    Literal::Form form = Literal::Form::Text;
    int style = 0;  // of an explicit conversion
    std::vector<ExpressionPtr> operands;
    std::unique_ptr<Select> query;

    // Filled in by the analyzer. Of a literal, `type` is what it is converted to before it runs.
    Type type;
    std::string table;       // correlation name of a column
    bool isTextKey = false;  // of a column, as its ColumnInfo says
    bool wide = false;
};

struct TableSource {
    enum class Join { First, Comma, Inner, Left, Cross };

    std::string name;
    std::string alias;  // empty: none
    Join join = Join::First;
    ExpressionPtr on;
    std::shared_ptr<const TableInfo> info;
    bool held = false;  // its rows are to stay as they are until the transaction ends

    const std::string& CorrelationName() const { return alias.empty() ? name : alias; }
};

struct SelectItem {
    ExpressionPtr value;    // null: a star
    std::string qualifier;  // of a star, empty: all tables
    std::string alias;
};

struct OrderItem {
    ExpressionPtr value;
    bool descending = false;
    std::size_t position = 0;  // counted from 1: sorts by a result column; 0: by `value`
};

struct Select {
    bool distinct = false;
    std::optional<int> top;
    std::vector<SelectItem> items;
    std::vector<TableSource> sources;
    ExpressionPtr where;
    std::vector<ExpressionPtr> groups;
    ExpressionPtr having;
    std::vector<OrderItem> order;
    bool grouped = false;  // has groups or aggregates
};

struct Assignment {
    std::string column;
    ExpressionPtr value;
    Type type;
};

struct Statement {
    enum class Kind { Select, Insert, Update, Delete };

    // An earlier statement of the batch that this one differs from in its literals' values alone;
    // the rest is empty then. Its literals lie `literalShift` behind the other's.
    std::optional<std::size_t> sameAs;
    std::size_t literalShift = 0;

    Kind kind = Kind::Select;
    std::unique_ptr<Select> select;  // of a select, and of an insert that takes its rows from one
    TableSource target;
    std::vector<std::string> columns;  // of an insert
    std::vector<Type> columnTypes;
    std::vector<std::vector<ExpressionPtr>> values;  // of an insert
    std::vector<Assignment> assignments;             // of an update
    ExpressionPtr where;
};

}  // namespace kelvane::tsql
