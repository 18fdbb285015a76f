#include "adapters/tsql/language/expression_analyzer.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <utility>

#include "adapters/tsql/language/errors.h"
#include "platform/ascii.h"

namespace kelvane::tsql {

namespace {

using Kind = Expression::Kind;

Type CommonType(Type a, Type b) {
    if (a.IsText() && b.IsText()) return {std::max(a.kind, b.kind), 0};
    return a.kind < b.kind ? b : a;
}

// Converts the operands to the type that the strongest of them has.
Type Unify(std::vector<ExpressionPtr>& operands) {
    Type common;
    for (const ExpressionPtr& operand : operands) common = CommonType(common, operand->type);
    for (ExpressionPtr& operand : operands) ConvertTo(operand, common);
    return common;
}

std::string FullName(const Expression& column) {
    return column.qualifier.empty() ? column.name : column.qualifier + '.' + column.name;
}

}  // namespace

void ConvertTo(ExpressionPtr& expression, Type type) {
    const Type from = expression->type;
    if (expression->kind == Kind::Null || type.kind == Type::Kind::Null) return;
    if (expression->kind == Kind::Literal) {
        expression->type = type;
        return;
    }
    if (from.kind == type.kind || (from.IsText() && type.IsText()) ||
        (from.IsInteger() && type.IsInteger())) {
        return;
    }
    auto conversion = std::make_unique<Expression>(Kind::Convert);
    conversion->type = type;
    conversion->operands.push_back(std::move(expression));
    expression = std::move(conversion);
}

void ExpressionAnalyzer::Value(ExpressionPtr& expression) {
    if (expression->IsCondition()) throw SyntaxError(expression->symbol);
    switch (expression->kind) {
        case Kind::Column:
            return Column(*expression);
        case Kind::Arithmetic:
            return Arithmetic(*expression);
        case Kind::Function:
            return Function(*expression);
        case Kind::Aggregate:
            return Aggregate(*expression);
        case Kind::Convert:
            return Value(expression->operands[0]);
        case Kind::Query:
            OneColumnQuery(*expression->query);
            expression->type = expression->query->items[0].value->type;
            return;
        default:
            return;
    }
}

void ExpressionAnalyzer::Condition(ExpressionPtr& expression) {
    if (!expression->IsCondition()) {
        throw DatabaseError(
            "An expression of non-boolean type specified in a context where a condition is "
            "expected.",
            4145);
    }
    switch (expression->kind) {
        case Kind::And:
        case Kind::Or:
        case Kind::Not:
            for (ExpressionPtr& operand : expression->operands) Condition(operand);
            return;
        case Kind::Exists:
            return mAnalyzeQuery(*expression->query, &mScope);
        default:
            break;
    }
    for (ExpressionPtr& operand : expression->operands) Value(operand);
    switch (expression->kind) {
        case Kind::Compare:
        case Kind::Between:
        case Kind::InList:
            Unify(expression->operands);
            return;
        case Kind::Like:
            for (ExpressionPtr& operand : expression->operands) {
                if (!operand->type.IsText()) ConvertTo(operand, {Type::Kind::VarChar, 0});
            }
            return;
        case Kind::InQuery: {
            Select& query = *expression->query;
            OneColumnQuery(query);
            const Type common =
                CommonType(expression->operands[0]->type, query.items[0].value->type);
            ConvertTo(expression->operands[0], common);
            ConvertTo(query.items[0].value, common);
            return;
        }
        default:
            return;
    }
}

void ExpressionAnalyzer::OneColumnQuery(Select& query) {
    mAnalyzeQuery(query, &mScope);
    if (query.items.size() != 1) {
        throw DatabaseError(
            "Only one expression can be specified in the select list when the subquery is not "
            "introduced with EXISTS.",
            116);
    }
    if (!query.order.empty() && !query.top) {
        throw DatabaseError("The ORDER BY clause is invalid in subqueries unless TOP is specified.",
                            1033);
    }
}

void ExpressionAnalyzer::Column(Expression& expression) {
    bool knowsTable = false;
    bool hasTables = false;
    for (const Scope* scope = &mScope; scope != nullptr; scope = scope->outer) {
        if (scope->sources == nullptr) continue;
        hasTables = hasTables || !scope->sources->empty();
        const TableSource* found = nullptr;
        const ColumnInfo* column = nullptr;
        for (const TableSource& source : *scope->sources) {
            if (!expression.qualifier.empty() &&
                !platform::EqualIgnoringCase(expression.qualifier, source.CorrelationName())) {
                continue;
            }
            knowsTable = true;
            const ColumnInfo* candidate = source.info->Find(expression.name);
            if (candidate == nullptr) continue;
            if (column != nullptr) throw AmbiguousColumn(expression.name);
            column = candidate;
            found = &source;
        }
        if (column == nullptr) continue;
        mMetOuterColumn = mMetOuterColumn || scope != &mScope;
        expression.table = found->CorrelationName();
        expression.name = column->name;
        expression.type = column->type;
        expression.isTextKey = column->isTextKey;
        return;
    }
    if (!hasTables) {
        throw DatabaseError("The name \"" + FullName(expression) +
                                "\" is not permitted in this context. Valid expressions are "
                                "constants, constant expressions, and (in some contexts) "
                                "variables. Column names are not permitted.",
                            128);
    }
    if (!knowsTable) throw UnboundName(FullName(expression));
    throw UnknownColumn(expression.name);
}

void ExpressionAnalyzer::Arithmetic(Expression& expression) {
    for (ExpressionPtr& operand : expression.operands) Value(operand);
    const Type common = Unify(expression.operands);
    if (common.kind == Type::Kind::DateTime) throw NotTranslated("datetime " + expression.symbol);
    expression.type = common;
    if (common.IsText()) {
        if (expression.symbol != "+") {
            throw DatabaseError(
                "Operand data type varchar is invalid for operator '" + expression.symbol + "'.",
                8117);
        }
        expression.kind = Kind::Concatenate;
    } else if (common.IsInteger() && common.kind != Type::Kind::BigInt) {
        expression.type.kind = Type::Kind::Int;
    }
}

void ExpressionAnalyzer::Function(Expression& expression) {
    struct Known {
        std::string_view name;
        std::size_t arguments;
    };
    constexpr Known kFunctions[] = {{"isnull", 2}, {"ltrim", 1}, {"rtrim", 1}, {"len", 1}};
    const auto* known =
        std::find_if(std::begin(kFunctions), std::end(kFunctions),
                     [&](const Known& function) { return function.name == expression.name; });
    if (known == std::end(kFunctions)) throw UnknownFunction(expression.name);
    if (expression.operands.size() != known->arguments) {
        throw ArgumentCount(expression.name, static_cast<int>(known->arguments));
    }
    for (ExpressionPtr& operand : expression.operands) Value(operand);
    if (expression.name == "isnull") {
        const Type first = expression.operands[0]->type;
        const bool untyped = first.kind == Type::Kind::Null;
        expression.type = untyped ? expression.operands[1]->type : first;
        ConvertTo(expression.operands[1], expression.type);
        return;
    }
    ConvertTo(expression.operands[0], {Type::Kind::VarChar, 0});
    expression.type = {expression.name == "len" ? Type::Kind::Int : Type::Kind::VarChar, 0};
}

void ExpressionAnalyzer::Aggregate(Expression& expression) {
    if (!mAggregatesAllowed) {
        throw DatabaseError("An aggregate may not appear in the WHERE clause.", 147);
    }
    const bool countsRows = expression.name == "count" && expression.operands.empty();
    if (!countsRows && expression.operands.size() != 1) throw ArgumentCount(expression.name, 1);
    mMetAggregate = true;
    mAggregatesAllowed = false;
    mMetOuterColumn = false;
    for (ExpressionPtr& operand : expression.operands) Value(operand);
    mAggregatesAllowed = true;
    if (mMetOuterColumn) throw NotTranslated(expression.name + " of an outer query's column");
    if (expression.name == "count") {
        expression.type = {Type::Kind::Int, 0};
        return;
    }
    const Type type = expression.operands[0]->type;
    expression.type = type;
    if (expression.name == "min" || expression.name == "max") return;
    if (!type.IsNumber() || type.kind == Type::Kind::Bit) {
        throw DatabaseError("Operand data type " + std::string(TypeName(type)) +
                                " is invalid for " + expression.name + " operator.",
                            8117);
    }
    if (type.kind < Type::Kind::Int) expression.type = {Type::Kind::Int, 0};
}

std::string Signature(const Expression& expression) {
    std::string text = std::to_string(static_cast<int>(expression.kind)) + expression.name + '|' +
                       expression.symbol + '|' + platform::LowerAscii(expression.table) + '|' +
                       std::to_string(expression.literal) + (expression.negated ? "-" : "+") +
                       (expression.distinct ? "d" : "") + std::string(TypeName(expression.type)) +
                       std::to_string(expression.style);
    for (const ExpressionPtr& operand : expression.operands) {
        text += '(' + Signature(*operand) + ')';
    }
    // Sub-queries are never taken for the same.
    if (expression.query) text += std::to_string(reinterpret_cast<std::uintptr_t>(&expression));
    return text;
}

}  // namespace kelvane::tsql
