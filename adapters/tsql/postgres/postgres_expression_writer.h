// Writes the expressions of a statement for PostgreSQL and collects the parameters on the way. A
// parameter's place is written "$1", "$2" …; FilledForPostgres() puts the values there.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "adapters/tsql/translation.h"

namespace kelvane::tsql {

class PostgresExpressionWriter {
public:
    // What a sub-query's column is wanted for.
    enum class Wanted { Value, Comparable };

    // The expression's value in its own type, or the condition.
    std::string Value(const Expression& expression);
    // What to sort, group and compare the expression by: texts as the dialect compares them.
    std::string Comparable(const Expression& expression);
    // The expression as a column of `type` named `column` stores it.
    std::string Stored(const Expression& expression, Type type, std::string_view column);

    // A select of one column; see postgres_select.cpp.
    std::string Query(const Select& query, Wanted wanted);
    // What stands behind the columns of a select, up to its order.
    std::string Clauses(const Select& select);
    // Its order, and how many rows it wants.
    std::string Tail(const Select& select);
    // The tables with their joins, and the condition.
    std::string SourcesAndCondition(const Select& select);
    // The expressions that tell the order in which the select's rows come when it says nothing.
    static std::vector<std::string> RowOrder(const Select& select);

    std::vector<Parameter> TakeParameters() { return std::move(mParameters); }

    // While it lives, the rows of `select` are grouped: a text that they are grouped by stands for
    // the first one of each group.
    class Grouping {
    public:
        Grouping(PostgresExpressionWriter& writer, const Select& select);
        ~Grouping();
        Grouping(const Grouping&) = delete;
        Grouping& operator=(const Grouping&) = delete;

    private:
        PostgresExpressionWriter& mWriter;
        std::vector<std::string> mOuter;
        std::string mOuterOrder;
    };

private:
    // While it lives, texts are each row's own: rows are not grouped yet.
    class RowByRow {
    public:
        explicit RowByRow(PostgresExpressionWriter& writer)
            : mWriter(writer), mGroups(std::exchange(writer.mGroups, {})) {}
        ~RowByRow() { mWriter.mGroups = std::move(mGroups); }
        RowByRow(const RowByRow&) = delete;
        RowByRow& operator=(const RowByRow&) = delete;

    private:
        PostgresExpressionWriter& mWriter;
        std::vector<std::string> mGroups;
    };

    std::string Plain(const Expression& expression);
    std::string RowsOwn(const Expression& expression);
    bool IsGroup(const Expression& expression) const;
    std::string AddParameter(const Expression& literal, Parameter::Use use, Type type,
                             std::string_view column = "");
    std::string ArithmeticValue(const Expression& expression);
    std::string CallValue(const Expression& call);
    std::string AggregateValue(const Expression& aggregate);
    std::string ExtremeValue(const Expression& call, const std::string& order);
    std::string SumValue(const Expression& call);
    std::string ListOf(const Expression& expression);
    std::string Condition(const Expression& expression);

    std::vector<Parameter> mParameters;
    std::vector<std::string> mGroups;  // the signatures of what the rows are grouped by
    std::string mGroupOrder;
};

}  // namespace kelvane::tsql
