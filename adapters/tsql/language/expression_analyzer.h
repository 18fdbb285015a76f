// Types one expression. The select analyzer calls it for each place of a select, and it calls back
// for sub-queries.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "adapters/tsql/language/syntax.h"

namespace kelvane::tsql {

// The tables that names can refer to: those of a query, then those of the queries around it.
struct Scope {
    const std::vector<TableSource>* sources = nullptr;
    const Scope* outer = nullptr;
};

class ExpressionAnalyzer {
public:
    using AnalyzeQuery = std::function<void(Select&, const Scope*)>;

    // `query`: analyses a sub-query within the given scope.
    ExpressionAnalyzer(const Scope& scope, AnalyzeQuery query)
        : mScope(scope), mAnalyzeQuery(std::move(query)) {}

    // Types a value; throws when it is a condition.
    void Value(ExpressionPtr& expression);
    // Types a condition; throws when it is a value.
    void Condition(ExpressionPtr& expression);

    // Whether an aggregate has been met.
    bool MetAggregate() const { return mMetAggregate; }
    // Makes an aggregate an error from here on, as in a "where".
    void RefuseAggregates() { mAggregatesAllowed = false; }

private:
    void Column(Expression& expression);
    void Arithmetic(Expression& expression);
    void Call(Expression& expression);
    void AggregateOperands(Expression& expression);
    void OneColumnQuery(Select& query);

    const Scope& mScope;
    AnalyzeQuery mAnalyzeQuery;
    bool mAggregatesAllowed = true;
    bool mMetAggregate = false;
    bool mMetOuterColumn = false;
};

// Makes `expression` yield `type`.
void ConvertTo(ExpressionPtr& expression, Type type);

// Whether the value is the same for every row: it names no column and asks no table.
bool IsConstant(const Expression& expression);

// A text that two expressions share exactly when they mean the same.
std::string Signature(const Expression& expression);

}  // namespace kelvane::tsql
